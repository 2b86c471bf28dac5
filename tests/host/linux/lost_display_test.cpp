// What becomes of a dialog whose display goes away.
#include "host/program.h"
#include "support/virtual_display.h"

#include <future>

namespace {

using LostDisplay = LumohostTest;

// The script would keep the dialog open for longer than the test may take.
TEST_F(LostDisplay, CancelsTheDialogAndNothingIsWritten)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.IsThere()) << "Xvfb is not installed";
    fFolder.Put("script", "wait 600\n");
    const std::string film = Argument(SourceFile("samples/five-frames.ei"));
    auto session = std::async(std::launch::async, [&] {
        return RunLumohost({"open", film, "--play", Path("script"), "-o", Path("none.png")}, 1);
    });
    const char* const awaits = "timeout 60 xdotool search --sync --onlyvisible --name "
                               "'^ElectricImage$' >/dev/null";
    EXPECT_EQ(std::system(awaits), 0) << "the dialog is shown";
    display.End();
    EXPECT_THAT(session.get().messages, testing::HasSubstr("(-128)"));
    EXPECT_FALSE(std::filesystem::exists(fFolder / "none.png"));
}

} // namespace
