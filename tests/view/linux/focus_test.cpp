#include "test_messengers.h"

#include <gtest/gtest.h>

namespace {

class Windowed : public Node {
public:
    Windowed(const char* name, CMessenger* parent) : CMessenger(parent, Kesto::CObjID(name), kBoth), Node(name) {}
    Platform::NativeWindow GetSystemWindow() override { return this; }
};

// Linux takes any address for a native window.
TEST(NativeFocusTest, FollowsTheBullseye)
{
    NotingProcess process;
    Windowed window("w", &process);
    Node field("f", &window);
    EXPECT_TRUE(field.BecomeBullseyeAndNotify(false));
    EXPECT_EQ(Platform::FocusedWindow(), &window);
    EXPECT_EQ(field.GetParentSystemWindow(), &window);
    EXPECT_TRUE(process.BecomeBullseye(false));
    EXPECT_EQ(Platform::FocusedWindow(), &window) << "one without a window takes it from none";
    Platform::FocusWindow(nullptr);
}

} // namespace
