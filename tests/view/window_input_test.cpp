// Windows under a user's hands: keys and the mouse by way of the queue, and what other windows and
// failures leave alone.
#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "platform/input/injection.h"
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
    process.PostCall(-1, [] {
        Platform::InjectKey(kKeyCode_Return, true, u"\r");
        Platform::InjectKey(kKeyCode_Return, false);
    });
    EXPECT_EQ(dialog.Run(), 1);
    process.PumpQuiet();
    EXPECT_EQ(field->typed, "");
}

TEST(WindowKeys, EscapeBreaksADragOffAndCancelsOnlyWhenPressedAnew)
{
    PumpedProcess process;
    CDialog dialog(PlanOf());
    Button* const cancel = dialog.AppendChild(std::make_unique<Button>(false, true));
    dialog.AddButton(*cancel);
    dialog.Start();
    process.PumpQuiet();
    dialog.KeepTracker(std::make_unique<CNonPollingTracker>(*cancel, CMouseEvent()));
    for (const int flashes : {0, 1}) {
        SCOPED_TRACE(flashes);
        Platform::InjectKey(kKeyCode_Escape, true, u"\x1B");
        Platform::InjectKey(kKeyCode_Escape, false);
        process.PumpQuiet();
        EXPECT_EQ(dialog.GetTracker(), nullptr);
        EXPECT_EQ(cancel->flashes, flashes);
    }
}

TEST(WindowMouse, PressesReachTheViewAtEachScaleAndMovesTheWindowsGround)
{
    struct Pressed : CPane {
        using CPane::CPane;
        void PrimaryClick(const CMouseEvent& event) override { at = PortToLocal(event.fPortPoint); }
        void PrimaryUp(const CMouseEvent&) override { ++released; }
        Point at;
        int released = 0;
    };
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        PumpedProcess process;
        CDocumentWindow window(DocumentPlan());
        auto* const view = window.AppendChild(std::make_unique<Pressed>(Rect{20, 20, 60, 60}));
        window.Start();
        window.ChangeScale(scale);
        window.SizeWindow({200, 100});
        process.PumpQuiet();
        const PixelRect content = window.GetWindowBounds();
        const auto moveTo = [&](double x, double y) {
            Platform::InjectMove(
                {content.left + ToDevice(x, scale), content.top + ToDevice(y, scale)});
            process.PumpQuiet();
        };
        moveTo(30, 40);
        EXPECT_EQ(CView::MouseView(), view);
        Platform::InjectButton(Platform::Key::kLeftButton, true);
        moveTo(150, 90); // the release comes to the view that was pressed
        Platform::InjectButton(Platform::Key::kLeftButton, false);
        process.PumpQuiet();
        EXPECT_EQ(view->at, (Point{10, 20}));
        EXPECT_EQ(view->released, 1);
        moveTo(150, 80);
        EXPECT_EQ(CView::MouseView(), &window);
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
    PumpedProcess process;
    Watched window(DocumentPlan());
    auto* const view = window.AppendChild(std::make_unique<Field>());
    view->SetCursor(Platform::Cursor(Platform::CursorShape::kText), true);
    window.Start();
    process.PumpQuiet();
    const PixelRect content = window.GetWindowBounds();
    const auto moveTo = [&](std::int32_t x, std::int32_t y) {
        window.shown.clear();
        Platform::InjectMove({content.left + x, content.top + y});
        process.PumpQuiet();
        return window.shown.empty() ? ' ' : window.shown.back();
    };
    moveTo(150, 80);
    EXPECT_EQ(moveTo(30, 20), 'v');
    EXPECT_EQ(moveTo(150, 80), 'w');
    Platform::EnableSystemWindow(window.NativeHandle(), false);
    EXPECT_EQ(moveTo(30, 20), ' ');
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
