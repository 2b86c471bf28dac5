// Windows as the toolkit has them, with native ones behind them: in memory on Linux, Wine's on
// Windows.
#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"
#include "support/testing.h"
#include "view/messages/message_ids.h"
#include "view/process/desktop.h"
#include "view/process/ui_scale.h"
#include "view/resources_in_use.h"
#include "view/test_pump.h"
#include "view/test_timers.h"
#include "view/window/size_box.h"
#include "view/window/window_kinds.h"
#include "view/window_parts.h"

namespace {

using namespace Kesto;
namespace Number = Platform::Number;

struct Dialog : CDialog {
    explicit Dialog(const CWindowPlan& plan = PlanOf()) : CDialog(plan)
    {
        field = AppendChild(std::make_unique<Field>(Rect{10, 10, 110, 30}));
    }

    bool Key(std::uint32_t number, std::uint32_t value, std::uint32_t bits = 1)
    {
        return SendPlatformKey({NativeHandle(), number, value, static_cast<std::intptr_t>(bits)});
    }
    bool Press(std::uint32_t key, std::uint32_t character)
    {
        const bool taken = Key(Number::kKeyDown, key);
        const bool typed = Key(Number::kKeyChar, character);
        Key(Number::kKeyUp, key);
        return taken || typed;
    }

    Field* field;
};

class WindowTest : public testing::Test {
protected:
    PumpedProcess process;

    ~WindowTest() override { process.PumpQuiet(); }

    static CDesktop& Desktop() { return *CServiceT<CDesktop>::Get(true); }
};

TEST_F(WindowTest, FocusFeaturesImplyOneAnother)
{
    const std::pair<std::uint32_t, std::uint32_t> cases[] = {
        {kWin_CanTabStop, kWin_AllTargeting},
        {kWin_CanBullseye, kWin_CanTarget | kWin_CanBullseye},
        {kWin_CanTarget, kWin_CanTarget},
        {0, 0}};
    for (const auto& [given, taken] : cases)
        EXPECT_EQ(CWindow(PlanOf(nullptr, given)).GetFeatures(), taken) << given;
}

TEST_F(WindowTest, OpensGivesTheFocusAndCloses)
{
    Dialog dialog;
    EXPECT_EQ(dialog.NativeHandle(), nullptr);
    dialog.Start();
    EXPECT_TRUE(Platform::IsShown(dialog.NativeHandle()));
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_TRUE(dialog.IsActive());
    EXPECT_EQ(Desktop().ActiveWindow(), &dialog);
    EXPECT_EQ(CMessenger::GetBullseye(), dialog.field);
    const PixelRect content = dialog.GetWindowBounds();
    EXPECT_EQ(content.right - content.left, ToDevice(200.0, dialog.GetScaleFactor()));
    EXPECT_EQ(dialog.LocalToGlobal(Point{}), (Point{double(content.left), double(content.top)}));
    CallTimer timer(1.0);
    timer.SetContext(&dialog);
    timer.Start();
    dialog.Stop();
    EXPECT_FALSE(timer.IsRunning());
    EXPECT_EQ(timer.stops, 1) << "it ends with its window and hears of it";
    EXPECT_EQ(dialog.NativeHandle(), nullptr);
    EXPECT_EQ(CMessenger::GetBullseye(), &process);
    EXPECT_EQ(dialog.CountChildren(), 0U);
    EXPECT_EQ(Desktop().FrontWindow(), nullptr);
}

TEST_F(WindowTest, EachWindowKeepsItsFocusUnasked)
{
    Dialog first;
    Dialog second;
    Field* const other = first.AppendChild(std::make_unique<Field>(Rect{10, 40, 110, 60}));
    first.Start();
    ASSERT_TRUE(other->BecomeBullseye(false));
    const int asked = other->asked;
    second.Start();
    EXPECT_EQ(CMessenger::GetBullseye(), second.field);
    Platform::ActivateWindow(first.NativeHandle());
    EXPECT_EQ(CMessenger::GetBullseye(), other);
    EXPECT_TRUE(first.field->BecomeBullseye(false));
    EXPECT_FALSE(other->IsBullseye());
    Platform::ActivateWindow(second.NativeHandle());
    EXPECT_EQ(CMessenger::GetBullseye(), second.field);
    EXPECT_EQ(other->asked, asked + 1) << "by its own window's change alone";
    EXPECT_EQ(second.field->asked, 0);
}

TEST_F(WindowTest, ReturnAndEscapePressTheButtons)
{
    Dialog dialog;
    Button* const ok = dialog.AppendChild(std::make_unique<Button>(true, false));
    Button* const cancel = dialog.AppendChild(std::make_unique<Button>(false, true));
    dialog.AddButton(*ok);
    dialog.AddButton(*cancel);
    dialog.Start();
    EXPECT_TRUE(dialog.Press(0x0D, 0x0D));
    EXPECT_EQ(ok->flashes, 1);
    EXPECT_EQ(dialog.field->typed, "") << "the rest of the press is dropped";
    dialog.Key(Number::kKeyDown, 0x0D, 1 | 1U << 30);
    EXPECT_EQ(ok->flashes, 1) << "a repeat presses nothing";
    EXPECT_TRUE(dialog.Press(0x1B, 0x1B));
    EXPECT_EQ(cancel->flashes, 1);
    cancel->Disable();
    dialog.Press(0x1B, 0x1B);
    EXPECT_EQ(cancel->flashes, 1);
    dialog.Press('A', 'a');
    EXPECT_THAT(dialog.field->typed, testing::EndsWith("a"));
    dialog.Stop();
}

TEST_F(WindowTest, PaintsWhatIsInvalidAndFollowsItsSize)
{
    Dialog dialog(PlanOf(nullptr, 0x183 | kWin_CanSize | kWin_HasSizeBox));
    dialog.field->SetBinding(kBind_FixedTopRight);
    dialog.SetSizeLimits({{150.0, 80.0}, {400.0, 300.0}});
    dialog.Start();
    process.PumpQuiet();
    EXPECT_EQ(dialog.field->draws, 1);
    CPane* const box = dialog.FindChild(kWindow_SizeBox, false);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(dialog.GetChild(0), box);
    EXPECT_EQ(box->GetFrame(), (Rect{184.0, 84.0, 200.0, 100.0}));
    dialog.field->InvalidateAll();
    dialog.UpdateNow();
    EXPECT_EQ(dialog.field->draws, 2);
    process.PumpQuiet();
    EXPECT_EQ(dialog.field->draws, 2) << "nothing is painted twice";
    dialog.SizeWindow({250.0, 120.0});
    EXPECT_EQ(dialog.GetBounds().Width(), 250.0);
    EXPECT_EQ(dialog.field->GetFrame().right, 160.0);
    EXPECT_EQ(box->GetFrame(), (Rect{234.0, 104.0, 250.0, 120.0}));
    dialog.SizeWindow({10.0, 10.0});
    EXPECT_EQ(dialog.GetBounds().Width(), 150.0) << "the limits hold";
    EXPECT_EQ(dialog.GetBounds().Height(), 80.0);
    process.PumpQuiet();
    Platform::Bitmap picture;
    EXPECT_TRUE(Platform::PhotographWindow(dialog.NativeHandle(), picture));
    dialog.Stop();
}

TEST_F(WindowTest, PlacesItselfAsItsPlacementSays)
{
    const Platform::Monitor monitor{{0, 0, 1000, 800}, {0, 0, 1000, 760}, 1.0};
    const struct {
        const char* what;
        double x, y, sizeX, sizeY;
        PixelRect place;
    } cases[] = {
        {"in the middle, a third down", -50, -33, 0, 0, {400, 218, 600, 318}},
        {"units from the corner", 30, 40, 0, 0, {30, 40, 230, 140}},
        {"pulled onto the monitor", 990, 900, 0, 0, {800, 660, 1000, 760}},
        {"parts of the work area", 0, 0, -50, -25, {0, 0, 500, 190}},
        {"a size of its own", -100, 0, 300, 200, {700, 0, 1000, 200}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        CWindowPlacement placement;
        placement.positionX = each.x;
        placement.positionY = each.y;
        placement.sizeX = each.sizeX;
        placement.sizeY = each.sizeY;
        EXPECT_EQ(PlaceOnMonitor(placement, monitor, {200.0, 100.0}, 1.0, {}), each.place);
    }
    EXPECT_EQ(PlaceOnMonitor({}, monitor, {200.0, 100.0}, 2.0, {5, 20, 5, 5}).left, 300);
    const PixelRect upright{1000, 0, 1600, 1200};
    const Platform::Monitor two[] = {monitor, {upright, upright, 1.0}};
    for (const auto& [choice, index] :
         {std::pair(kMonitor_Main, 1), std::pair(kMonitor_Big, 0), std::pair(kMonitor_Small, 1),
          std::pair(kMonitor_Tall, 1), std::pair(kMonitor_Short, 0), std::pair(kMonitor_Wide, 0),
          std::pair(kMonitor_Thin, 1), std::pair(kMonitor_Deep, 1)})
        EXPECT_EQ(ChooseMonitor(two, choice, 1), std::size_t(index)) << choice;
    CWindowPlacement stored;
    stored.monitor = kMonitor_Big;
    EXPECT_EQ(StartMonitor(stored, two, 1), 0U) << "nobody has placed it yet";
    stored.user = {1100, 50, 1200, 90};
    EXPECT_EQ(StartMonitor(stored, two, 0), 1U) << "where the user had it";
    stored.user = {5000, 50, 5100, 90};
    EXPECT_EQ(StartMonitor(stored, two, 0), 1U) << "the nearest to a monitor that has gone";
}

TEST_F(WindowTest, OpensInTheStateThatItWasLeftIn)
{
    const struct {
        const char* what;
        EWindowKind kind;
        EWindowState state;
        bool minimized, maximized;
    } rows[] = {
        {"as ever", kWin_Document, kWinState_Default, false, false},
        {"minimized", kWin_Document, kWinState_Minimized, true, false},
        {"maximized", kWin_Document, kWinState_Maximized, false, true},
        {"a palette that the toolkit maximizes", kWin_Palette, kWinState_Maximized, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CWindowPlan plan = PlanOf(nullptr, 0x183 | kWin_AllFeatures);
        plan.kind = row.kind;
        plan.placement.state = row.state;
        CWindow window(plan);
        window.Start();
        EXPECT_EQ(Platform::IsMinimized(window.NativeHandle()), row.minimized);
        EXPECT_EQ(Platform::IsMaximized(window.NativeHandle()), row.maximized);
        window.Stop();
        const CWindowPlacement left = window.GetPlacement();
        const bool isFloat = row.kind == kWin_Palette;
        EXPECT_EQ(left.last[2] - left.last[0], isFloat ? 200.0 : 0.0) << "before it was maximized";
        EXPECT_EQ(left.sizeX, isFloat ? 0.0 : 200.0);
        EXPECT_EQ(left.state, row.state == kWinState_Default ? kWinState_Normal : row.state);
    }
}

// In a program of its own each time, since the first window of all counts.
TEST(FirstWindowDeathTest, OpensBehindWhereTheProgramWasStartedSo)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    struct Started : PumpedProcess {
        Platform::ShowCommand StartShowCommand() override { return command; }
        Platform::ShowCommand command = Platform::ShowCommand::kNormal;
    };
    const auto opensBehind = [](int command, bool isModal) {
        Started process;
        process.command = static_cast<Platform::ShowCommand>(command);
        Dialog first;
        first.SetModal(isModal);
        first.Start();
        Dialog second;
        const bool isBehind = !first.IsActive() && Platform::IsShown(first.NativeHandle());
        second.Start();
        std::_Exit(second.IsActive() ? isBehind : 2);
    };
    for (const auto& [command, isModal, isBehind] :
         {std::tuple(1, false, 0), std::tuple(3, false, 0), std::tuple(4, false, 1),
          std::tuple(7, false, 1), std::tuple(8, false, 1), std::tuple(8, true, 0)}) {
        SCOPED_TRACE(command);
        EXPECT_EXIT(opensBehind(command, isModal), testing::ExitedWithCode(isBehind), "");
    }
}

TEST_F(WindowTest, ComesBackWhereItWas)
{
    Dialog dialog;
    dialog.Start();
    dialog.MoveWindow({77, 66});
    const PixelRect content = dialog.GetWindowBounds();
    dialog.Stop();
    Dialog again;
    again.SetPlacement(dialog.GetPlacement());
    EXPECT_EQ(again.GetPlacement().state, double(kWinState_Normal));
    again.Start();
    EXPECT_EQ(again.GetWindowBounds(), content);
}

enum class At { kNativeWindow, kViews, kPrepared, kShown };

// A window whose start fails at one of its steps.
template <class Kind>
struct Failing : Kind {
    Failing(const CWindowPlan& plan, At at) : Kind(plan), failsAt(at) {}
    void CreateViews() override { FailAt(At::kViews); }
    void DidPrepare() override { FailAt(At::kPrepared); }
    void AfterShow() override { FailAt(At::kShown); }
    void FailAt(At at) const
    {
        if (failsAt == at)
            throw CError("refused");
    }

    At failsAt;
};

// No system has windows of a class with such a name.
struct ProcessWithoutWindows : PumpedProcess {
    CText ModalClassName() override { return DefaultClassName(); }
    CText DefaultClassName() override { return std::string(300, 'x').c_str(); }
};

template <class Kind>
void FailEachStart(CWindow& owner, bool isModal)
{
    const std::pair<const char*, At> steps[] = {{"the native window", At::kNativeWindow},
                                                {"the views", At::kViews},
                                                {"the last of the preparations", At::kPrepared},
                                                {"what follows the showing", At::kShown}};
    const std::size_t windows = Platform::ThreadWindows().size();
    for (const auto& [what, at] : steps)
        for (const bool runs : {false, true}) {
            SCOPED_TRACE(what);
            std::optional<ProcessWithoutWindows> refuses;
            if (at == At::kNativeWindow)
                refuses.emplace();
            Failing<Kind> window(PlanOf(isModal ? &owner : nullptr), at);
            window.SetModal(isModal);
            const auto start = [&] { runs ? void(window.Run()) : window.Start(); };
            if (at == At::kNativeWindow)
                EXPECT_THROW(start(), CSystemError);
            else
                EXPECT_THROW(start(), CError);
            EXPECT_EQ(window.NativeHandle(), nullptr);
            EXPECT_FALSE(window.IsStarted());
            EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
            EXPECT_TRUE(Platform::IsSystemWindowEnabled(owner.NativeHandle()));
            EXPECT_EQ(Platform::ThreadWindows().size(), windows);
        }
}

TEST_F(WindowTest, AStartThatFailsGivesBackWhatItTook)
{
    Dialog owner;
    owner.Start();
    {
        SCOPED_TRACE("a modal dialog");
        FailEachStart<Dialog>(owner, true);
    }
    SCOPED_TRACE("a frame of documents");
    FailEachStart<CMDIFrame>(owner, false);
}

// What a run throws is what is thrown, whatever the end of it throws besides.
TEST_F(WindowTest, AStopThatFailsGivesBackWhatTheStartTook)
{
    struct Sulking : Field {
        void DidLoseBullseye() override { throw CError("I was not asked"); }
    };
    Dialog owner;
    owner.Start();
    for (const bool aborts : {false, true}) {
        SCOPED_TRACE(aborts);
        CDialog dialog(PlanOf(&owner));
        dialog.SetModal(true);
        dialog.AppendChild(std::make_unique<Sulking>());
        process.PostCall(-1, [&] {
            if (aborts)
                throw CAbort(true);
            dialog.EndRun(0);
        });
        if (aborts)
            EXPECT_THROW(dialog.Run(), CAbort);
        else
            EXPECT_THROW(dialog.Run(), CError);
        EXPECT_EQ(dialog.NativeHandle(), nullptr);
        EXPECT_FALSE(dialog.IsStarted());
        EXPECT_EQ(Desktop().ModalCount(), 0U);
        EXPECT_TRUE(Platform::IsSystemWindowEnabled(owner.NativeHandle()));
    }
}

// The size in units stays; the pixels, the views' scale and their places follow.
TEST_F(WindowTest, FollowsAChangeOfScaleWhileOpen)
{
    Dialog dialog;
    Field* const still = dialog.AppendChild(std::make_unique<Field>(Rect{10, 40, 110, 60}));
    still->SetNoScaleUIForFont(true);
    dialog.Start();
    process.PumpQuiet();
    EXPECT_EQ(still->textWidth, dialog.field->textWidth);
    const double before = dialog.GetScaleFactor();
    SetUiScale(2.0);
    Platform::PostToQueue(dialog.NativeHandle(), Number::kDisplayChange);
    process.PumpQuiet();
    EXPECT_EQ(dialog.GetScaleFactor(), before * 2.0);
    EXPECT_EQ(dialog.GetBounds().Width(), 200.0);
    const PixelRect content = dialog.GetWindowBounds();
    EXPECT_EQ(content.right - content.left, ToDevice(200.0, before * 2.0));
    EXPECT_EQ(dialog.GetClientPixels().x, content.right - content.left);
    EXPECT_EQ(dialog.field->GetFrame(), (Rect{10, 10, 110, 30}));
    EXPECT_NEAR(still->textWidth, dialog.field->textWidth / 2, 3.0) << "pixels are as they were";
    Platform::Bitmap picture;
    EXPECT_TRUE(Platform::PhotographWindow(dialog.NativeHandle(), picture));
    SetUiScale(0.0);
    EXPECT_EQ(GetUiScale(), 1.0) << "0 is no scale";
    Dialog again;
    again.Start();
    EXPECT_EQ(again.GetScaleFactor(), before);
}

// The host may make another module object, which runs a dialog of its own, while one is open.
TEST_F(WindowTest, AProcessThatCameAndWentUnderADialogHandsTheKeyboardBack)
{
    Dialog dialog;
    process.PostCall(-1, [&] {
        const Platform::NativeWindow outside = dialog.NativeHandle();
        {
            PumpedProcess inner;
            CWindowPlan plan = PlanOf();
            plan.ownerWindow = outside;
            Dialog other(plan);
            other.SetModal(true);
            inner.PostCall(-1, [&] {
                EXPECT_EQ(CMessenger::GetBullseye(), other.field);
                EXPECT_EQ(Desktop().ModalCount(), 1U);
                EXPECT_FALSE(Platform::IsSystemWindowEnabled(outside));
                other.DoClose();
            });
            other.Run();
        }
        EXPECT_EQ(CProcess::Current(), &process);
        EXPECT_EQ(CMessenger::GetBullseye(), dialog.field);
        EXPECT_EQ(Platform::FocusedWindow(), outside);
        EXPECT_TRUE(Platform::IsSystemWindowEnabled(outside));
        EXPECT_EQ(Desktop().ActiveWindow(), &dialog);
        dialog.Press('A', 'a');
        EXPECT_EQ(dialog.field->typed, "a");
        dialog.EndRun(7);
    });
    EXPECT_EQ(dialog.Run(), 7);
    EXPECT_EQ(Desktop().ModalCount(), 0U);
}

TEST_F(WindowTest, AnOwnerThatDiesFirstEndsTheRun)
{
    auto owner = std::make_unique<Dialog>();
    owner->Start();
    Dialog dialog(PlanOf(owner.get()));
    dialog.SetModal(true);
    process.PostCall(-1, [&owner] { owner.reset(); });
    dialog.Run();
    EXPECT_EQ(dialog.NativeHandle(), nullptr);
    EXPECT_EQ(Desktop().ModalCount(), 0U);
}

TEST_F(WindowTest, PopupsCloseWithTheirSurroundings)
{
    const std::pair<const char*, std::function<void(Dialog&)>> causes[] = {
        {"Escape", [](Dialog& dialog) { dialog.Press(0x1B, 0x1B); }},
        {"the owner moves",
         [](Dialog& dialog) {
             dialog.MoveWindow({5, 7});
         }},
        {"another window is activated",
         [](Dialog&) {
             Dialog other;
             other.Start();
         }},
    };
    for (const auto& [what, cause] : causes) {
        SCOPED_TRACE(what);
        Dialog dialog;
        dialog.Start();
        CWindowPlan plan = PlanOf(&dialog, 0);
        plan.super = &dialog;
        CPopup popup(plan);
        popup.Start();
        EXPECT_TRUE(Platform::IsShown(popup.NativeHandle()));
        EXPECT_EQ(Desktop().ActiveWindow(), &dialog) << "a popup is never active";
        EXPECT_EQ(Desktop().FrontWindow(), &popup);
        EXPECT_EQ(Desktop().FrontOwner(), &dialog);
        cause(dialog);
        EXPECT_FALSE(Platform::IsShown(popup.NativeHandle()));
        EXPECT_TRUE(popup.IsDone());
        EXPECT_FALSE(dialog.IsDone());
        popup.Stop();
        dialog.Stop();
    }
}

TEST_F(WindowTest, ManyWindowsLeaveNothing)
{
    const auto open = [this](int times) {
        for (int i = 0; i < times; ++i) {
            Dialog dialog(PlanOf(nullptr, 0x183 | kWin_CanSize | kWin_HasSizeBox));
            dialog.field->SetTip("What to type", true);
            dialog.SetModal(true);
            dialog.Start();
            process.PumpQuiet();
            dialog.Stop();
        }
    };
    open(20); // which fill caches
    const ResourcesInUse before = CountResources();
    open(2000);
    const ResourcesInUse after = CountResources();
    EXPECT_LT(after.bytes, before.bytes + 65536);
    EXPECT_LE(after.drawing, before.drawing);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_EQ(Platform::ThreadWindows().size(), 0U);
    EXPECT_EQ(Desktop().FrontWindow(), nullptr);
    EXPECT_EQ(Desktop().ModalCount(), 0U);
}

} // namespace
