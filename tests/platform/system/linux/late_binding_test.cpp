// Functions of libraries that are loaded at their first call.
#include "platform/system/linux/caller.h"
#include "support/testing.h"

#include <dlfcn.h>

namespace {

TEST(LateBinding, LoadsTheLibraryAtItsFirstCallAndHandsOnAllArguments)
{
    const auto isLoaded = [] { return dlopen("liblate_callee.so", RTLD_LAZY | RTLD_NOLOAD); };
    EXPECT_EQ(isLoaded(), nullptr);
    for (const char* call : {"first", "second"}) {
        EXPECT_EQ(CallWithManyArguments(), 0b0100110101101111) << call;
        EXPECT_EQ(CallWithOpenArguments(), "7 0.25 words -3") << call;
        EXPECT_NE(isLoaded(), nullptr) << call;
    }
}

TEST(LateBinding, ThrowsAtEachCallOfALibraryThatIsMissing)
{
    for (const char* call : {"first", "second"})
        try {
            CallMissingLibrary();
            ADD_FAILURE() << call << " call came back";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("libnowhere.so.1"), std::string::npos) << call;
        }
}

} // namespace
