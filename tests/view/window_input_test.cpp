// Windows under a user's hands: keys and the mouse by way of the queue, and what other windows and
// failures leave alone.
#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "platform/input/injection.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/window_paint.h"
#include "support/alert_capture.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/process/desktop.h"
#include "view/test_pump.h"
#include "view/tree/view_tracker.h"
#include "view/window_parts.h"

namespace {

using namespace Kesto;

// A window and a user's hands on it. Places are pixels of its content.
template <class Window = CDocumentWindow>
struct Hands {
    explicit Hands(const CWindowPlan& plan = DocumentPlan()) : window(plan) {}

    void Open()
    {
        window.Start();
        process.PumpQuiet();
    }
    void MoveTo(std::int32_t x, std::int32_t y)
    {
        const PixelRect content = window.GetWindowBounds();
        Platform::InjectMove({content.left + x, content.top + y});
        process.PumpQuiet();
    }
    void Button(bool down, Platform::Key button = Platform::Key::kLeftButton)
    {
        Platform::InjectButton(button, down);
        process.PumpQuiet();
    }
    bool HasMouse() const { return Platform::CapturingWindow() == window.NativeHandle(); }

    PumpedProcess process;
    Window window;
};

struct Pressed : CPane {
    using CPane::CPane;
    void PrimaryClick(const CMouseEvent& event) override
    {
        ++presses;
        at = PortToLocal(event.fPortPoint);
    }
    void PrimaryUp(const CMouseEvent&) override { ++released; }

    Point at;
    int presses = 0;
    int released = 0;
};

TEST(WindowKeys, TheRestOfAPressThatClosedADialogIsDropped)
{
    PumpedProcess process;
    CDocumentWindow document(DocumentPlan());
    auto* const field = document.AppendChild(std::make_unique<Field>());
    document.Start();
    CDialog dialog(PlanOf(&document));
    Button* const button =
        dialog.AppendChild(std::make_unique<Button>(true, false, [&] { dialog.EndRun(1); }));
    dialog.AddButton(*button);
    process.PostCall(-1, [] { PressKey(kKeyCode_Return, u"\r"); });
    EXPECT_EQ(dialog.Run(), 1);
    process.PumpQuiet();
    EXPECT_EQ(field->typed, "");
}

TEST(WindowKeys, EscapeBreaksADragOffAndCancelsOnlyWhenPressedAnew)
{
    Hands<CDialog> hands(PlanOf());
    CDialog& dialog = hands.window;
    Button* const cancel = dialog.AppendChild(std::make_unique<Button>(false, true));
    dialog.AddButton(*cancel);
    hands.Open();
    dialog.KeepTracker(std::make_unique<CNonPollingTracker>(*cancel, CMouseEvent()));
    for (const int flashes : {0, 1}) {
        SCOPED_TRACE(flashes);
        PressKey(kKeyCode_Escape, u"\x1B");
        hands.process.PumpQuiet();
        EXPECT_EQ(dialog.GetTracker(), nullptr);
        EXPECT_EQ(cancel->flashes, flashes);
    }
}

// With an owner Alt closes too, as the system's own key does.
TEST(WindowKeys, TheCloseKeyAsksForTheCloseWhereTheWindowCanClose)
{
    constexpr std::uint32_t kControlKey = 0x11;
    constexpr std::uint32_t kAltKey = 0x12;
    const struct {
        const char* name;
        bool hasOwner;
        std::uint32_t features;
        std::vector<std::uint32_t> held;
        bool closes;
    } rows[] = {
        {"Alt without an owner", false, 0x183, {kAltKey}, true},
        {"Control without an owner", false, 0x183, {kControlKey}, false},
        {"Control with an owner", true, 0x183, {kControlKey}, true},
        {"Alt with an owner", true, 0x183, {kAltKey}, true},
        {"both", true, 0x183, {kControlKey, kAltKey}, false},
        {"neither", true, 0x183, {}, false},
        {"a window that can't close", false, 0x182, {kAltKey}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PumpedProcess process;
        CDocumentWindow document(DocumentPlan());
        if (row.hasOwner)
            document.Start();
        CDialog window(PlanOf(row.hasOwner ? &document : nullptr, row.features));
        window.Start();
        process.PumpQuiet();
        for (const std::uint32_t key : row.held)
            Platform::InjectKey(key, true);
        PressKey(kKeyCode_F4);
        for (const std::uint32_t key : row.held)
            Platform::InjectKey(key, false);
        process.PumpQuiet();
        EXPECT_EQ(window.IsDone(), row.closes);
    }
}

TEST(WindowMouse, PressesReachTheViewAtEachScaleAndMovesTheWindowsGround)
{
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        Hands hands;
        CWindow& window = hands.window;
        auto* const view = window.AppendChild(std::make_unique<Pressed>(Rect{20, 20, 60, 60}));
        window.Start();
        window.ChangeScale(scale);
        window.SizeWindow({200, 100});
        hands.process.PumpQuiet();
        const auto moveTo = [&](double x, double y) {
            hands.MoveTo(ToDevice(x, scale), ToDevice(y, scale));
        };
        moveTo(30, 40);
        EXPECT_EQ(CView::MouseView(), view);
        hands.Button(true);
        moveTo(150, 90); // the release comes to the view that was pressed
        hands.Button(false);
        EXPECT_EQ(view->at, (Point{10, 20}));
        EXPECT_EQ(view->released, 1);
        moveTo(150, 80);
        EXPECT_EQ(CView::MouseView(), &window);
    }
}

TEST(WindowMouse, TheWindowKeepsTheMouseUntilTheLastButtonIsUp)
{
    Hands hands;
    hands.Open();
    hands.MoveTo(50, 50);
    const auto keepsAfter = [&](Platform::Key key, bool down) {
        hands.Button(down, key);
        return hands.HasMouse();
    };
    EXPECT_TRUE(keepsAfter(Platform::Key::kLeftButton, true));
    EXPECT_TRUE(keepsAfter(Platform::Key::kRightButton, true));
    EXPECT_TRUE(keepsAfter(Platform::Key::kRightButton, false)) << "the left one is still held";
    EXPECT_FALSE(keepsAfter(Platform::Key::kLeftButton, false));
}

TEST(WindowMouse, ADragEndsWithItsReleaseAndIsBrokenOffWhenTheMouseIsTakenAway)
{
    struct Drag : CNonPollingTracker {
        using CNonPollingTracker::CNonPollingTracker;
        void End(const CMouseEvent&) override { *log += "end"; }
        void Abort() override { *log += "abort"; }
        std::string* log = nullptr;
    };
    CMouseEvent press;
    press.fButton = kMouseButton_Primary;
    for (const bool isTaken : {false, true}) {
        SCOPED_TRACE(isTaken);
        Hands hands;
        hands.Open();
        hands.MoveTo(50, 50);
        hands.Button(true);
        std::string log;
        auto drag = std::make_unique<Drag>(hands.window, press);
        drag->log = &log;
        hands.window.KeepTracker(std::move(drag));
        if (isTaken)
            Platform::ReleaseMouse();
        EXPECT_EQ(log, isTaken ? "abort" : "");
        hands.Button(false);
        EXPECT_EQ(log, isTaken ? "abort" : "end");
        EXPECT_EQ(hands.window.GetTracker(), nullptr);
    }
}

TEST(WindowMouse, TheSizeBoxFollowsTheMouseAndEscapePutsTheSizeBack)
{
    for (const bool isLive : {false, true})
        for (const bool breaksOff : {false, true}) {
            SCOPED_TRACE(std::string(isLive ? "live" : "at the release") +
                         (breaksOff ? ", broken off" : ""));
            PumpedProcess process;
            CWindowPlan plan = DocumentPlan();
            plan.features |=
                kWin_CanSize | kWin_HasSizeBox | (isLive ? std::uint32_t{kWin_LiveResize} : 0);
            CDocumentWindow window(plan);
            window.SetSizeLimits({{150.0, 80.0}, {400.0, 300.0}});
            window.Start();
            process.PumpQuiet();
            const PixelRect content = window.GetWindowBounds();
            Platform::InjectMove({content.right - 4, content.bottom - 4});
            process.PumpQuiet();
            // In turns of the tracker, which pumps meanwhile.
            process.PostCall(0, [&] {
                Platform::InjectMove({content.right + 36, content.bottom + 900});
                process.PostCall(-1, [&] {
                    EXPECT_EQ(window.GetBounds().Width(), isLive ? 240.0 : 200.0);
                    if (breaksOff)
                        Platform::InjectKey(kKeyCode_Escape, true, u"\x1B");
                    process.PostCall(
                        -1, [] { Platform::InjectButton(Platform::Key::kLeftButton, false); });
                });
            });
            Platform::InjectButton(Platform::Key::kLeftButton, true);
            process.PumpUntil([&] { return process.TopEvent() == nullptr; });
            process.PumpQuiet();
            Platform::InjectKey(kKeyCode_Escape, false);
            process.PumpQuiet();
            const Point size = breaksOff ? Point{200.0, 100.0} : Point{240.0, 300.0};
            EXPECT_EQ(window.GetBounds(), (Rect{0, 0, size.x, size.y}));
        }
}

// The press lies in the queue while the question is answered, and finds the window gone, or there.
TEST(WindowMouse, APressDuringACloseHitsWhatIsLeft)
{
    for (const bool lets : {true, false}) {
        SCOPED_TRACE(lets);
        struct Asked : Field {
            bool CanSurrender(bool force) override
            {
                Platform::InjectButton(Platform::Key::kLeftButton, true);
                Platform::InjectButton(Platform::Key::kLeftButton, false);
                return Field::CanSurrender(force);
            }
        };
        PumpedProcess process;
        CDialog dialog(PlanOf());
        auto* const field = dialog.AppendChild(std::make_unique<Asked>());
        auto* const other = dialog.AppendChild(std::make_unique<Pressed>(
            Rect{100, 50, 150, 90}, CObjID(), kView_NoFocusOnClick | kView_SupressSurrenders));
        field->surrenders = lets;
        int presses = -1;
        process.PostCall(-1, [&] {
            const PixelRect content = dialog.GetWindowBounds();
            Platform::InjectMove({content.left + 120, content.top + 60});
            dialog.DoClose();
            if (lets)
                return;
            process.PostCall(-1, [&] {
                presses = other->presses;
                field->surrenders = true;
                dialog.EndRun(0);
            });
        });
        dialog.Run();
        EXPECT_EQ(dialog.NativeHandle(), nullptr);
        EXPECT_EQ(presses, lets ? -1 : 1);
        process.PumpQuiet();
        EXPECT_EQ(Platform::CapturingWindow(), nullptr);
    }
}

// A window that takes no input shows no cursor of its views.
TEST(WindowMouse, TheCursorIsThatOfTheViewBelowIt)
{
    struct Watched : CDocumentWindow {
        using CDocumentWindow::CDocumentWindow;
        void ShowPortCursor(const Platform::Cursor* cursor) override
        {
            shown += cursor != nullptr ? 'v' : 'w';
            CDocumentWindow::ShowPortCursor(cursor);
        }
        std::string shown;
    };
    Hands<Watched> hands;
    Watched& window = hands.window;
    auto* const view = window.AppendChild(std::make_unique<Field>());
    view->SetCursor(Platform::Cursor(Platform::CursorShape::kText), true);
    hands.Open();
    const auto moveTo = [&](std::int32_t x, std::int32_t y) {
        window.shown.clear();
        hands.MoveTo(x, y);
        return window.shown.empty() ? ' ' : window.shown.back();
    };
    moveTo(150, 80);
    EXPECT_EQ(moveTo(30, 20), 'v');
    EXPECT_EQ(moveTo(150, 80), 'w');
    Platform::EnableSystemWindow(window.NativeHandle(), false);
    EXPECT_EQ(moveTo(30, 20), ' ');
}

TEST(WindowHandlers, AreAskedAfterATrackerThatSeesAllMessages)
{
    struct Jealous : CTracker {
        Jealous() : CTracker(kMouseButton_Primary) { fState |= kState_CapturesMessages; }
        bool Track(const CMouseEvent&) override { return false; }
        bool PreTranslate(const Platform::QueuedMessage& message) override
        {
            eaten = message.number;
            return eats;
        }
        bool eats = true;
        std::uint32_t eaten = 0;
    };
    Hands hands;
    hands.Open();
    Jealous tracker;
    const auto closes = [&] {
        Platform::DispatchToWindow({hands.window.NativeHandle(), Platform::Number::kClose});
        return hands.window.IsDone();
    };
    hands.MoveTo(50, 50);
    hands.Button(true);
    hands.process.PumpUntil([&] { return hands.HasMouse(); });
    hands.process.PostCall(0, [&] {
        EXPECT_FALSE(closes());
        EXPECT_EQ(tracker.eaten, Platform::Number::kClose);
        tracker.eats = false;
        EXPECT_TRUE(closes());
        Platform::InjectButton(Platform::Key::kLeftButton, false);
    });
    tracker.Run(hands.process);
    EXPECT_EQ(CTracker::Active(), nullptr);
}

TEST(WindowHandlers, ReportWhatTheyThrowAndGoOnUnlessTheUserStopped)
{
    struct Thrower : CDialog {
        using CDialog::CDialog;
        bool HandleKey(CKeyboardMessage&) override
        {
            if (aborts)
                throw CAbort(true);
            throw CError("The key is wrong.", "", false, true);
        }
        bool aborts = false;
    };
    PumpedProcess process;
    AlertCapture alerts;
    CDocumentWindow document(DocumentPlan());
    document.Start();
    Thrower dialog(PlanOf(&document));
    dialog.SetModal(true);
    process.PostCall(-1, [&] {
        Platform::InjectKey('A', true);
        process.PostCall(-1, [&] {
            EXPECT_FALSE(alerts.texts.empty());
            dialog.aborts = true;
            Platform::InjectKey('A', false);
        });
    });
    EXPECT_THROW(dialog.Run(), CAbort);
    EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
    EXPECT_TRUE(Platform::IsSystemWindowEnabled(document.NativeHandle()));
    EXPECT_EQ(dialog.NativeHandle(), nullptr);
}

TEST(WindowPainting, AFailureCountsAsPaintedAndIsReportedOnceAfterwards)
{
    struct Thrower : CPane {
        using CPane::CPane;
        void DrawInContext(const CPaintEvent&) override
        {
            throw CError("It can't be drawn.", "", false, true);
        }
    };
    PumpedProcess process;
    AlertCapture alerts;
    CDocumentWindow window(DocumentPlan());
    window.AppendChild(std::make_unique<Thrower>(Rect{0, 0, 50, 50}));
    window.Start();
    window.UpdateNow();
    EXPECT_TRUE(alerts.texts.empty());
    for (int i = 0; i < 3; ++i) {
        window.InvalidateAll();
        process.PumpQuiet();
    }
    EXPECT_EQ(alerts.texts, (std::vector<std::string>{"It can't be drawn."}));
}

TEST(CDialog, EndsByItsCommands)
{
    const struct {
        const char* name;
        CObjID id;
        bool lets; // the field with the focus
        std::int32_t result;
    } rows[] = {
        {"OK", kDefault_Ok, true, 1},
        {"Cancel", kDefault_Cancel, true, 0},
        {"Cancel asks nobody who could refuse", kDefault_Cancel, false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PumpedProcess process;
        CDialog dialog(PlanOf());
        dialog.AppendChild(std::make_unique<Field>())->surrenders = row.lets;
        process.PostCall(-1, [&] {
            CCommandMessage command(nullptr, row.id);
            dialog.SendCommand(command);
        });
        EXPECT_EQ(dialog.Run(), row.result);
    }
}

} // namespace
