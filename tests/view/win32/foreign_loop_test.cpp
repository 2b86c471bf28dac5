// What goes on while a loop that isn't ours pumps the thread's messages.
#include "foundation/errors/exceptions.h"
#include "platform/input/system_timer.h"
#include "platform/windows/foreign_loop.h"
#include "platform/windows/popup_menu.h"
#include "support/alert_capture.h"
#include "support/testing.h"
#include "view/test_pump.h"
#include "view/test_timers.h"
#include "view/window_parts.h"

#include <thread>
#include <windows.h>

namespace {

using namespace Kesto;

// As a message box or the host runs it.
void RunLoopOfSystem(const std::function<bool()>& isOver)
{
    const DWORD end = GetTickCount() + 10000;
    MSG message{};
    while (!isOver() && GetTickCount() < end && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}

TEST(ForeignLoop, RunsTimersAndPostedEvents)
{
    PumpedProcess process;
    bool wasPosted = false;
    CallTimer timer(0.03);
    timer.Start();
    process.PostCall(0, [&wasPosted] { wasPosted = true; });
    RunLoopOfSystem([&] { return timer.fired >= 3 && wasPosted; });
    EXPECT_GE(timer.fired, 3);
    EXPECT_TRUE(wasPosted);
    timer.Stop();
    const int before = timer.fired;
    process.PumpQuiet();
    EXPECT_EQ(timer.fired, before) << "a stopped one is silent in all loops";
}

void CALLBACK EndLoop(HWND frame, UINT, UINT_PTR, DWORD)
{
    PostMessageW(frame, WM_LBUTTONUP, 0, 0);
    EndMenu();
}

// A dialog that is opened there runs, and what is thrown is told, since it can't unwind through the
// system.
TEST(ForeignLoop, OfADraggedFrameOrAnOpenMenuGivesTurns)
{
    const std::pair<const char*, std::function<void(HWND)>> loops[] = {
        {"a frame is dragged",
         [](HWND frame) { SendMessageW(frame, WM_SYSCOMMAND, SC_MOVE | HTCAPTION, 0); }},
        {"a menu is open",
         [](HWND frame) {
             Platform::MenuRow row;
             row.text = "Only";
             Platform::RunPopupMenu(reinterpret_cast<Platform::NativeWindow>(frame), {100, 100},
                                    {&row, 1}, {});
         }},
    };
    for (const auto& [what, run] : loops) {
        SCOPED_TRACE(what);
        PumpedProcess process;
        AlertCapture alerts;
        CDocumentWindow window(DocumentPlan());
        window.Start();
        process.PumpQuiet();
        auto* const frame = reinterpret_cast<HWND>(window.NativeHandle());
        SetTimer(frame, 1, 10000, EndLoop); // should there be no turns
        CallTimer timer(0.03);
        timer.call = [&] {
            if (timer.fired == 3)
                EndLoop(frame, 0, 0, 0);
        };
        std::int32_t result = 0;
        process.PostCall(0, [&] {
            CDialog dialog(PlanOf(&window));
            process.PostCall(-1, [&dialog] { dialog.EndRun(3); });
            result = dialog.Run();
            timer.Start();
            process.PostCall(0, [] { throw CError("In between."); });
        });
        run(frame);
        EXPECT_EQ(timer.fired, 3);
        EXPECT_EQ(result, 3);
        EXPECT_EQ(alerts.texts, (std::vector<std::string>{"In between."}));
    }
}

// One that is destroyed while its frame is dragged hears no more of the drag's end.
TEST(ForeignLoop, EndsWithTheWindowThatItRunsFor)
{
    for (const bool isTold : {true, false}) {
        SCOPED_TRACE(isTold);
        {
            PumpedProcess process;
            CDocumentWindow window(DocumentPlan());
            window.Start();
            auto* const frame = reinterpret_cast<HWND>(window.NativeHandle());
            SendMessageW(frame, WM_ENTERSIZEMOVE, 0, 0);
            if (isTold)
                SendMessageW(frame, WM_EXITSIZEMOVE, 0, 0);
        }
        WNDCLASSW kind{};
        EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"Kesto_TurnClass", &kind));
    }
}

TEST(ForeignLoop, GivesATurnWhenABellRings)
{
    static int turns = 0;
    Platform::SetForeignTurn([](std::uintptr_t) { ++turns; });
    Platform::QueueBell bell;
    for (const int ringing : {1, 2}) {
        SCOPED_TRACE(ringing);
        std::thread([&bell] {
            bell.Ring();
            bell.Ring();
        }).join();
        RunLoopOfSystem([ringing] { return turns >= ringing; });
        EXPECT_EQ(turns, ringing);
    }
    Platform::SetForeignTurn(nullptr);
}

TEST(ForeignLoop, LeavesNoWindowOfItsTimers)
{
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 100; ++i) {
        SCOPED_TRACE(i);
        const std::uintptr_t first = Platform::ArmTimer(nullptr, 0, 1000);
        const std::uintptr_t second = Platform::ArmTimer(nullptr, 0, 1000);
        EXPECT_NE(first, second);
        Platform::DisarmTimer(nullptr, first);
        Platform::DisarmTimer(nullptr, second);
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), before);
    WNDCLASSW kind{};
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"Kesto_TurnClass", &kind));
}

} // namespace
