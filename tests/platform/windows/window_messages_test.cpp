// The messages of native windows and their order, which are the same on every system.
#include "platform/windows/window_log.h"
#include "support/testing.h"

namespace {

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;
using WindowTest::Log;
using WindowTest::Pump;

struct Taken {
    Log operator()(Log& log) const { return std::exchange(log, {}); }
};
constexpr Taken kTake;

WindowPlan OwnedBy(NativeWindow owner)
{
    WindowPlan plan;
    plan.owner = owner;
    return plan;
}

TEST(NativeWindowMessages, AWindowsWholeLife)
{
    Log log;
    WindowTest::Window window("w", log);
    ASSERT_NE(window.handle, nullptr);
    EXPECT_THAT(log, IsEmpty()) << "nothing comes before the window is made";
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    EXPECT_THAT(kTake(log), ElementsAre("w show on", "w activate-app on", "w frame-activate on",
                                        "w activate on", "w set-focus", "w placed"));
    EXPECT_EQ(FrontmostWindow(), window.handle);
    EXPECT_EQ(FocusedWindow(), window.handle);
    Pump();
    EXPECT_THAT(kTake(log), ElementsAre("w paint"));
    PlaceContent(window.handle, {150, 120, 470, 300});
    EXPECT_THAT(kTake(log), ElementsAre("w placed", "w move 150,120", "w size 320,180"));
    EXPECT_EQ(ContentOf(window.handle), (PixelRect{150, 120, 470, 300}));
    Pump();
    EXPECT_THAT(kTake(log), ElementsAre("w paint")) << "of what is uncovered";
    ShowSystemWindow(window.handle, ShowCommand::kHide);
    EXPECT_THAT(kTake(log), ElementsAre("w show off", "w placed", "w frame-activate off",
                                        "w activate off", "w activate-app off", "w kill-focus"));
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    EXPECT_THAT(kTake(log), ElementsAre("w show on", "w activate-app on", "w frame-activate on",
                                        "w activate on", "w set-focus", "w placed"));
    EndSystemWindow(window.handle);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_FALSE(IsSystemWindow(window.handle));
}

TEST(NativeWindowMessages, ActivationGoesFromOneToTheOther)
{
    Log log;
    WindowTest::Window owner("o", log);
    WindowTest::Window dialog("d", log, OwnedBy(owner.handle));
    ShowSystemWindow(owner.handle, ShowCommand::kShow);
    kTake(log);
    ShowSystemWindow(dialog.handle, ShowCommand::kShow);
    EXPECT_THAT(kTake(log), ElementsAre("d show on", "o frame-activate off", "o activate off",
                                        "d frame-activate on", "d activate on", "o kill-focus",
                                        "d set-focus", "d placed"));
    EnableSystemWindow(owner.handle, false);
    EXPECT_THAT(kTake(log), ElementsAre("o enable off"));
    ActivateWindow(owner.handle);
    EXPECT_EQ(FrontmostWindow(), dialog.handle) << "a disabled window is not activated";
    EnableSystemWindow(owner.handle, true);
    EXPECT_THAT(kTake(log), ElementsAre("o enable on"));
    ShowSystemWindow(dialog.handle, ShowCommand::kHide);
    EXPECT_THAT(kTake(log),
                ElementsAre("d show off", "d placed", "d frame-activate off", "d activate off",
                            "o frame-activate on", "o activate on", "d kill-focus", "o set-focus"));
    EXPECT_EQ(FrontmostWindow(), owner.handle);
}

TEST(NativeWindowMessages, AnOwnerTakesItsWindowsAlong)
{
    Log log;
    auto owner = std::make_unique<WindowTest::Window>("o", log);
    WindowTest::Window dialog("d", log, OwnedBy(owner->handle));
    ShowSystemWindow(owner->handle, ShowCommand::kShow);
    ShowSystemWindow(dialog.handle, ShowCommand::kShow);
    kTake(log);
    owner.reset();
    EXPECT_EQ(log.back(), "d destroyed");
    EXPECT_FALSE(IsSystemWindow(dialog.handle));
    kTake(log);
    ShowSystemWindow(dialog.handle, ShowCommand::kShow);
    PlaceContent(dialog.handle, {0, 0, 9, 9});
    EXPECT_THAT(log, IsEmpty()) << "one that is gone changes nothing";
}

TEST(NativeWindowMessages, ADocumentHearsOfItsPlaceWhenItIsFirstShown)
{
    Log log;
    WindowPlan plan;
    plan.kind = WindowKind::kDocument;
    WindowTest::Window window("w", log, plan);
    const Log first{"w show on", "w placed", "w size 300,200", "w move 100,100"};
    for (const Log& expected : {first, Log{"w show on", "w placed"}}) {
        SCOPED_TRACE(expected.size());
        ShowSystemWindow(window.handle, ShowCommand::kShowInactive);
        EXPECT_EQ(kTake(log), expected);
        ShowSystemWindow(window.handle, ShowCommand::kHide);
        kTake(log);
    }
}

TEST(NativeWindowMessages, PaintKnowsWhatIsToBePainted)
{
    Log log;
    WindowTest::Window window("w", log);
    const PixelRect part{10, 10, 20, 20};
    InvalidateWindow(window.handle, {&part, 1});
    Pump();
    EXPECT_THAT(log, IsEmpty()) << "a hidden window is not painted";
    ShowSystemWindow(window.handle, ShowCommand::kShowInactive);
    Pump();
    EXPECT_THAT(window.painted, ElementsAre(PixelRect{0, 0, 300, 200}));
    const PixelRect rects[] = {{10, 10, 30, 20}, {20, 10, 50, 20}, {-5, -5, 2, 2}};
    InvalidateWindow(window.handle, rects);
    Pump();
    std::int32_t area = 0;
    for (const PixelRect& rect : window.painted)
        area += (rect.right - rect.left) * (rect.bottom - rect.top);
    EXPECT_EQ(area, 40 * 10 + 2 * 2) << "they don't overlap and are cut to the content";
    kTake(log);
    InvalidateWindow(window.handle, rects);
    ValidateWindow(window.handle, rects);
    UpdateWindowNow(window.handle);
    EXPECT_THAT(log, IsEmpty());
    InvalidateWindow(window.handle, {&part, 1});
    UpdateWindowNow(window.handle);
    EXPECT_THAT(window.painted, ElementsAre(part));
    EXPECT_EQ(PeekQueue(Peek::kLeave, {Number::kPaint, Number::kPaint}), std::nullopt);
}

TEST(NativeWindowMessages, APhotographShowsWhatWasPresented)
{
    Log log;
    WindowTest::Window window("w", log);
    ASSERT_TRUE(window.shown.Make(300, 200, 32, false));
    window.shown.Bits()[20 * window.shown.RowBytes() + 30 * 4] = 77;
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    Pump();
    Bitmap picture;
    ASSERT_TRUE(PhotographWindow(window.handle, picture));
    EXPECT_EQ(picture.Width(), 300);
    EXPECT_EQ(picture.Bits()[20 * picture.RowBytes() + 30 * 4], 77);
}

TEST(NativeWindowMessages, ExceptionsStopAtTheProcedureAndReachWhoDispatched)
{
    Log log;
    WindowTest::Window window("w", log);
    window.onMessage = [](const WindowMessage& message) {
        if (message.number == Number::kActivate || message.number == Number::kUser)
            throw std::runtime_error("handler");
    };
    EXPECT_THROW(ShowSystemWindow(window.handle, ShowCommand::kShow), std::runtime_error);
    EXPECT_TRUE(IsShown(window.handle)) << "the rest went on";
    PostToQueue(window.handle, Number::kUser);
    EXPECT_THROW(Pump(), std::runtime_error);
    PostToQueue(window.handle, Number::kUser + 1);
    EXPECT_NO_THROW(Pump()) << "it is thrown once";
    window.onMessage = nullptr;
}

TEST(NativeWindowMessages, LimitsHoldAndAWindowMayGoWhileItIsTold)
{
    Log log;
    WindowPlan plan;
    plan.kind = WindowKind::kDocument;
    plan.features = WindowFeature::kCanSize | WindowFeature::kCanMaximize;
    auto window = std::make_unique<WindowTest::Window>("w", log, plan);
    const FrameInsets insets = InsetsOf(window->handle);
    window->least = {250 + insets.left + insets.right, 150 + insets.top + insets.bottom};
    ShowSystemWindow(window->handle, ShowCommand::kShow);
    PlaceContent(window->handle, {100, 100, 110, 110});
    EXPECT_EQ(ContentOf(window->handle), (PixelRect{100, 100, 350, 250}));
    ShowSystemWindow(window->handle, ShowCommand::kMaximized);
    EXPECT_TRUE(IsMaximized(window->handle));
    EXPECT_EQ(NormalContentOf(window->handle), (PixelRect{100, 100, 350, 250}));
    ShowSystemWindow(window->handle, ShowCommand::kRestore);
    EXPECT_EQ(ContentOf(window->handle), (PixelRect{100, 100, 350, 250}));
    window->onMessage = [&](const WindowMessage& message) {
        if (message.number == Number::kShowWindow) {
            EndSystemWindow(message.window);
            window->onMessage = nullptr;
        }
    };
    ShowSystemWindow(window->handle, ShowCommand::kHide);
    EXPECT_FALSE(IsSystemWindow(window->handle));
}

} // namespace
