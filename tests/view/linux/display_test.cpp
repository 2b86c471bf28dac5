// Windows on a display, which is this test's own, while others do with them what they like: its
// monitors come and go, and there is no window manager that would heed a hint.
#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "platform/graphics/monitors.h"
#include "platform/windows/linux/display_message.h"
#include "support/testing.h"
#include "support/virtual_display.h"
#include "view/process/desktop.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

#include <cstdio>

namespace {

using namespace Kesto;

// Another program acts on the display, and has done so when this returns.
void Do(const std::string& command)
{
    EXPECT_EQ(std::system((command + " >/dev/null").c_str()), 0) << command;
}

class OnDisplay : public testing::Test {
protected:
    // The program connects once.
    static void SetUpTestSuite()
    {
        gDisplay = std::make_unique<VirtualDisplay>();
        ASSERT_TRUE(gDisplay->IsThere()) << "Xvfb is not installed";
    }
    static void TearDownTestSuite() { gDisplay.reset(); }

    static CWindowPlan Plan(const char* title, CMessenger* owner = nullptr)
    {
        CWindowPlan plan = PlanOf(owner);
        plan.title = title;
        return plan;
    }

    static void DoTo(const std::string& title, const std::string& act)
    {
        Do("xdotool search --name '^" + title + "$' " + act);
    }

    static std::string Ask(const std::string& command)
    {
        std::string words;
        FILE* const pipe = popen(command.c_str(), "r");
        for (int c = 0; pipe != nullptr && (c = std::fgetc(pipe)) != EOF;)
            words += static_cast<char>(c);
        EXPECT_EQ(pipe != nullptr ? pclose(pipe) : -1, 0) << command;
        return words;
    }
    static void EndDisplay() { gDisplay->End(); }

    PumpedProcess process;

private:
    static inline std::unique_ptr<VirtualDisplay> gDisplay;
};

TEST_F(OnDisplay, AWindowOpensOnTheMonitorWhereItWasLeft)
{
    // The first one has the output, which would else be a monitor of its own.
    Do("xrandr --setmonitor '*left' 400/100x600/150+0+0 screen");
    Do("xrandr --setmonitor right 400/100x600/150+400+0 none");
    ASSERT_EQ(Platform::ListMonitors().size(), 2U);
    CDocumentWindow window(Plan("Wanderer"));
    window.Start();
    process.PumpQuiet();
    EXPECT_LE(window.GetWindowBounds().right, 400) << "the first one's, to begin with";
    DoTo("Wanderer", "windowmove 450 120");
    process.PumpUntil([&] { return window.GetWindowBounds().left == 450; });
    const PixelRect left = window.GetWindowBounds();
    window.Stop();

    const auto boundsOfAnother = [&] {
        CDocumentWindow another(Plan("Follower"));
        another.SetPlacement(window.GetPlacement());
        another.Start();
        process.PumpQuiet();
        return another.GetWindowBounds();
    };
    EXPECT_EQ(boundsOfAnother(), left);
    Do("xrandr --delmonitor right");
    ASSERT_EQ(Platform::ListMonitors().size(), 1U);
    const PixelRect pulled = boundsOfAnother();
    EXPECT_LE(pulled.right, 400) << "that one has gone";
    EXPECT_EQ(pulled.right - pulled.left, left.right - left.left);
}

TEST_F(OnDisplay, WhoHeedsNoHintHarmsNoWindow)
{
    CDialog owner(Plan("Owner"));
    owner.Start();
    auto dialog = std::make_unique<CDialog>(Plan("Fixed", &owner));
    dialog->SetModal(true);
    dialog->Start();
    process.PumpQuiet();
    DoTo("Fixed", "windowsize 320 90");
    process.PumpUntil([&] { return dialog->GetBounds() == Rect{0, 0, 320, 90}; });
    DoTo("Fixed", "windowunmap windowmap");
    DoTo("Owner", "windowraise windowfocus");
    process.PumpUntil([&] { return Platform::FrontmostWindow() == dialog->NativeHandle(); });
    Platform::PostToQueue(owner.NativeHandle(), Platform::kDisplayClose);
    process.PumpQuiet();
    EXPECT_FALSE(owner.IsDone()) << "a disabled window doesn't close";
    DoTo("Fixed", "windowclose");
    process.PumpUntil([&] { return dialog->NativeHandle() == nullptr; });
    EXPECT_TRUE(dialog->IsDone());
    dialog.reset();
    EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
    EXPECT_TRUE(Platform::IsSystemWindowEnabled(owner.NativeHandle()));
    Platform::PostToQueue(owner.NativeHandle(), Platform::kDisplayClose);
    process.PumpUntil([&] { return owner.IsDone(); });
}

TEST_F(OnDisplay, TheWindowManagerIsToldWhatAWindowCanDo)
{
    CWindowPlan plan = Plan("Sizeable");
    plan.features |= kWin_CanSize;
    CDocumentWindow window(plan);
    window.SetSizeLimits({{150.0, 80.0}, {400.0, 300.0}});
    window.Start();
    process.PumpQuiet();
    const std::string words = Ask("xprop -name Sizeable WM_NORMAL_HINTS");
    EXPECT_THAT(words, testing::HasSubstr("minimum size: 150 by 80"));
    EXPECT_THAT(words, testing::HasSubstr("maximum size: 400 by 300"));
    const auto functions = [] { return Ask("xprop -name Sizeable _MOTIF_WM_HINTS"); };
    EXPECT_THAT(functions(), testing::HasSubstr("= 0x1, 0x26,")) << "sized, moved, closed";
    window.SetFeatures(kWin_CanMinimize);
    process.PumpQuiet();
    EXPECT_THAT(functions(), testing::HasSubstr("= 0x1, 0x8,"));
    Platform::PostToQueue(window.NativeHandle(), Platform::kDisplayClose);
    process.PumpQuiet();
    EXPECT_FALSE(window.IsDone()) << "it can't close";
}

TEST_F(OnDisplay, AWindowFollowsTheScaleOfTheDesktop)
{
    CDocumentWindow window(Plan("Scaled"));
    window.Start();
    process.PumpQuiet();
    const double before = window.GetScaleFactor();
    for (const auto& [dots, scale] : {std::pair(192, 2.0), std::pair(96, 1.0)}) {
        SCOPED_TRACE(dots);
        Do("echo Xft.dpi: " + std::to_string(dots) + " | xrdb -merge");
        process.PumpUntil([&, wanted = scale] { return window.GetScaleFactor() == wanted; });
        EXPECT_EQ(window.GetBounds(), (Rect{0, 0, 200, 100}));
        const PixelRect content = window.GetWindowBounds();
        EXPECT_EQ(content.right - content.left, ToDevice(200.0, scale));
    }
    EXPECT_EQ(before, 1.0);
}

// The last test: the program connects once.
TEST_F(OnDisplay, ThatGoesAwayEndsNestedDialogsWhoeverWouldRefuse)
{
    CDialog outer(Plan("Outer"));
    outer.SetModal(true);
    outer.AppendChild(std::make_unique<Field>())->surrenders = false;
    process.PostCall(-1, [&] {
        CDialog inner(Plan("Inner", &outer));
        inner.SetModal(true);
        process.PostCall(-1, [] { EndDisplay(); });
        EXPECT_EQ(inner.Run(), 0);
        EXPECT_EQ(inner.NativeHandle(), nullptr);
    });
    EXPECT_EQ(outer.Run(), 0);
    EXPECT_EQ(outer.NativeHandle(), nullptr);
    EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
    CDialog next(Plan("Next"));
    EXPECT_THROW(next.Start(), CSystemError);
    EXPECT_FALSE(next.IsStarted());
}

} // namespace
