// A window on a real display, typed into and clicked by another program. It brings its own display:
// a virtual one, which it ends again.
#include "platform/windows/window_log.h"
#include "support/virtual_display.h"

#include "platform/windows/clipboard.h"
#include "platform/windows/edit_control.h"
#include "platform/windows/focus.h"
#include "support/testing.h"

#include <chrono>
#include <unistd.h>

namespace {

using namespace Platform;
using std::chrono::steady_clock;

// Kilobytes that a process has in memory.
long MemoryOf(pid_t process)
{
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/" + std::to_string(process) + "/statm") >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

template <class Condition>
bool PumpUntil(Condition holds)
{
    const auto end = steady_clock::now() + std::chrono::seconds(20);
    while (!holds() && steady_clock::now() < end) {
        WindowTest::Pump();
        WaitForMessage(20);
    }
    return holds();
}

struct Handler final : EditHandler {
    bool Intercept(const WindowMessage&) override { return false; }
    void ChildFocused(bool) override {}
    void TextChanged() override {}
};

// Has another program act while this one pumps.
bool Do(const std::string& actions)
{
    const std::string command = "xdotool " + actions + " &";
    return std::system(command.c_str()) == 0;
}

TEST(DisplayTest, AWindowIsTypedIntoAndOutlivesItsDisplay)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.IsThere()) << "Xvfb is not installed";
    WindowTest::Log log;
    WindowPlan plan;
    plan.features = WindowFeature::kCanClose | WindowFeature::kCanSize;
    WindowTest::Window window("w", log, plan);
    ASSERT_NE(window.handle, nullptr);
    ASSERT_TRUE(window.shown.Make(300, 200, 32, false));
    Handler handler;
    const auto edit = MakeEditControl(window.handle, {}, {}, handler);
    edit->Place({10, 10, 250, 30});
    edit->SetShown(true);
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    FocusWindow(edit->Handle());
    ASSERT_TRUE(PumpUntil([] { return IsProcessForeground(); })) << "the keyboard comes";

    ASSERT_TRUE(Do("type --delay 5 'Hello, World 42'"));
    EXPECT_TRUE(PumpUntil([&] { return edit->Text() == "Hello, World 42"; })) << edit->Text();
    ASSERT_TRUE(Do("key --delay 5 shift+Home ctrl+c End ctrl+v BackSpace"));
    EXPECT_TRUE(PumpUntil([&] { return edit->Text() == "Hello, World 42Hello, World 4"; }))
        << edit->Text();
    EXPECT_EQ(ClipboardText(), "Hello, World 42");

    log.clear();
    ASSERT_TRUE(Do("mousemove 350 280 click 1"));
    EXPECT_TRUE(PumpUntil([&] { return !log.empty() && log.back() == "w left-up"; }));
    ASSERT_TRUE(Do("mousemove 113 120 click --repeat 2 --delay 50 1"));
    EXPECT_TRUE(PumpUntil([&] {
        return edit->Selection() == TextRange{0, 5};
    })) << "a double click selects the word";

    const auto openOthers = [&](int times) {
        for (int i = 0; i < times; ++i) {
            WindowTest::Window other("o", log, plan);
            const PixelRect part{0, 0, 50, 50};
            ShowSystemWindow(other.handle, ShowCommand::kShow);
            PresentBitmap(other.handle, window.shown, {&part, 1});
            log.clear();
        }
    };
    openOthers(100);
    const long before = MemoryOf(display.Process());
    openOthers(2000);
    EXPECT_LT(MemoryOf(display.Process()), before + 512) << "the server keeps nothing of them";

    log.clear();
    display.End();
    EXPECT_TRUE(PumpUntil([&] { return !log.empty() && log.back() == "w destroyed"; }))
        << "a lost display takes its windows along";
    EXPECT_FALSE(IsProcessForeground());
    EXPECT_EQ(MakeSystemWindow(plan, window), nullptr);
    unsetenv("DISPLAY");
}

} // namespace
