#include "platform/windows/win32/window_record.h"

#include "platform/graphics/win32/cursor_record.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/foreign_loop.h"
#include "platform/windows/win32/child_notices.h"

#include <map>

namespace Platform {
namespace {

static_assert(sizeof(SizeRange) == sizeof(MINMAXINFO));
static_assert(offsetof(SizeRange, least) == offsetof(MINMAXINFO, ptMinTrackSize));
static_assert(offsetof(SizeRange, most) == offsetof(MINMAXINFO, ptMaxTrackSize));

std::map<HWND, WindowRecord>& Records()
{
    static std::map<HWND, WindowRecord> records;
    return records;
}

void LeaveLoop(WindowRecord& record)
{
    if (record.loops == 0)
        return;
    --record.loops;
    ForeignLoop::Leave();
}

// The system is about to run a loop of its own for the window, or has ended it. A window that is
// destroyed in one hears no more of its end.
void NoteLoop(HWND window, UINT number)
{
    WindowRecord* const record = RecordOf(window);
    if (record == nullptr)
        return;
    switch (number) {
    case WM_ENTERSIZEMOVE:
    case WM_ENTERMENULOOP:
        ++record->loops;
        ForeignLoop::Enter();
        break;
    case WM_EXITSIZEMOVE:
    case WM_EXITMENULOOP:
        LeaveLoop(*record);
        break;
    case WM_NCDESTROY:
        while (record->loops > 0)
            LeaveLoop(*record);
        break;
    default:
        break;
    }
}

} // namespace

bool IsKeptFromSystem(UINT number, WPARAM first)
{
    switch (number) {
    case WM_CLOSE:
        return true;
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
        return first == VK_MENU || first == VK_F10 || first == VK_F4;
    case WM_SYSCHAR:
        return first != ' '; // which opens the window's menu
    default:
        return false;
    }
}

WindowRecord* RecordOf(HWND window)
{
    const auto found = Records().find(window);
    return found != Records().end() ? &found->second : nullptr;
}

void AddRecord(HWND window, const WindowRecord& record)
{
    Records().insert_or_assign(window, record);
}

std::vector<HWND> RecordedWindows()
{
    std::vector<HWND> windows;
    for (const auto& [window, record] : Records())
        windows.push_back(window);
    return windows;
}

LRESULT AnswerOfSystem(HWND window, const WindowRecord* record, UINT number, WPARAM first,
                       LPARAM second)
{
    if (record != nullptr && record->kind == WindowKind::kMDIDocument)
        return DefMDIChildProcW(window, number, first, second);
    if (record != nullptr && record->documents != nullptr)
        return DefFrameProcW(window, record->documents, number, first, second);
    return DefWindowProcW(window, number, first, second);
}

// A window hears nothing before MakeSystemWindow has returned it, and nothing once it is ended.
LRESULT CALLBACK ReceiveMessage(HWND window, UINT number, WPARAM first, LPARAM second)
{
    LRESULT answer = 0;
    NoteLoop(window, number);
    if (WithExceptionsStopped([&] { return TellChild(number, first, second, answer); }))
        return answer;
    WindowRecord* const record = RecordOf(window);
    if (record == nullptr || record->procedure == nullptr) {
        answer = AnswerOfSystem(window, record, number, first, second);
    } else {
        WindowProcedure& procedure = *record->procedure;
        answer = WithExceptionsStopped([&]() -> LRESULT {
            return procedure.Receive({Window(window), number, first, second});
        });
    }
    if (number == WM_NCDESTROY)
        Records().erase(window);
    return answer;
}

std::intptr_t DefaultAnswer(const WindowMessage& message)
{
    const HWND window = Handle(message.window);
    const WindowRecord* const record = RecordOf(window);
    if (message.number == WM_SYSKEYDOWN)
        ShowCuesOf(window);
    if (record == nullptr || IsKeptFromSystem(message.number, message.first))
        return 0;
    const bool canMove = (record->features & WindowFeature::kCanMove) != 0;
    switch (message.number) {
    case WM_SETCURSOR:
        if (LOWORD(message.second) != HTCLIENT)
            break;
        SetCursor(record->cursor.GetRecord().Handle());
        return TRUE;
    case WM_NCHITTEST: {
        const LRESULT hit =
            AnswerOfSystem(window, record, message.number, message.first, message.second);
        return hit == HTCAPTION && !canMove ? HTBORDER : hit;
    }
    case WM_SYSCOMMAND:
        if ((message.first & 0xFFF0) == SC_MOVE && !canMove)
            return 0;
        break;
    case WM_MOUSEACTIVATE:
        if (NeverActivates(record->kind))
            return MA_NOACTIVATE;
        break;
    case Number::kScaleChanged: {
        // What the system suggests keeps the size in units.
        const auto& rect = *reinterpret_cast<const RECT*>(message.second);
        SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left,
                     rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    default:
        break;
    }
    return AnswerOfSystem(window, record, message.number, message.first, message.second);
}

} // namespace Platform
