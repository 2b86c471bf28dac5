#include "platform/input/linux/input.h"
#include "platform/input/message_numbers.h"
#include "support/testing.h"
#include "view/test_messengers.h"

namespace {

class Windowed : public Node {
public:
    Windowed(const char* name, CMessenger* parent)
        : CMessenger(parent, Kesto::CObjID(name), kBoth), Node(name)
    {
    }
    Platform::NativeWindow GetSystemWindow() override { return fNative->Handle(); }

    struct Silent : Platform::MessageReceiver {
        std::intptr_t Receive(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    };
    std::unique_ptr<Silent> fNative = std::make_unique<Silent>();
};

TEST(NativeFocusTest, FollowsTheBullseye)
{
    NotingProcess process;
    Windowed window("w", &process);
    Node field("f", &window);
    EXPECT_TRUE(field.BecomeBullseyeAndNotify(false));
    EXPECT_EQ(Platform::FocusedWindow(), window.GetSystemWindow());
    EXPECT_EQ(field.GetParentSystemWindow(), window.GetSystemWindow());
    EXPECT_TRUE(process.BecomeBullseye(false));
    EXPECT_EQ(Platform::FocusedWindow(), window.GetSystemWindow())
        << "one without a window takes it from none";
    window.fNative.reset();
    EXPECT_EQ(Platform::FocusedWindow(), nullptr) << "it goes with its window";
}

TEST(ModifiersTest, AreThoseOfTheMessageInHandOrOfNow)
{
    using Kesto::CCommandMessage;
    using Kesto::KeyMoment;
    const auto modifiers = [](KeyMoment moment) {
        return CCommandMessage(nullptr, {}, moment).fModifiers;
    };
    const std::pair<Platform::Key, std::uint32_t> cases[] = {
        {Platform::Key::kControl,
         CCommandMessage::kModifier_Control | CCommandMessage::kModifier_Command},
        {Platform::Key::kAlt, CCommandMessage::kModifier_Alt},
        {Platform::Key::kShift, CCommandMessage::kModifier_Shift},
        {Platform::Key::kSpace, CCommandMessage::kModifier_Space}};
    const auto inject = [](Platform::Key key, std::uint32_t number) {
        Platform::QueuedMessage input;
        input.number = number;
        input.first = static_cast<std::uintptr_t>(key);
        Platform::InjectInput(input);
    };
    const auto take = [] { EXPECT_TRUE(Platform::PeekQueue(Platform::Peek::kRemove).has_value()); };
    for (const auto& [key, bits] : cases)
        for (const std::uint32_t number : {Platform::Number::kKeyDown, Platform::Number::kKeyUp}) {
            const bool down = number == Platform::Number::kKeyDown;
            SCOPED_TRACE(testing::Message() << "modifier " << bits << (down ? " down" : " up"));
            inject(key, number);
            EXPECT_EQ(modifiers(KeyMoment::kNow), down ? bits : 0);
            EXPECT_EQ(modifiers(KeyMoment::kLastMessage), down ? 0 : bits);
            take();
            EXPECT_EQ(modifiers(KeyMoment::kLastMessage), down ? bits : 0);
        }
    for (const std::uint32_t bits :
         {std::uint32_t{CCommandMessage::kModifier_CapsLock}, 0U}) { // it stays on
        for (const std::uint32_t number : {Platform::Number::kKeyDown, Platform::Number::kKeyUp}) {
            inject(Platform::Key::kCapsLock, number);
            take();
        }
        EXPECT_EQ(modifiers(KeyMoment::kNow), bits) << "after a press of Caps Lock";
    }
}

} // namespace
