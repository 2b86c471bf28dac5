#include "platform/windows/mouse_state.h"

#include "platform/graphics/win32/cursor_record.h"
#include "platform/windows/win32/window_record.h"

namespace Platform {

// It shows at once where the mouse is over the window or a child of it, which asks the window; else
// when it comes there.
void SetWindowCursor(NativeWindow window, const Cursor& cursor)
{
    WindowRecord* const record = RecordOf(Handle(window));
    if (record == nullptr)
        return;
    record->cursor = cursor;
    POINT point{};
    GetCursorPos(&point);
    RECT client{};
    GetClientRect(Handle(window), &client);
    const HWND under = WindowFromPoint(point);
    const bool isOver = under == Handle(window) || IsChild(Handle(window), under) != 0;
    if (isOver && ScreenToClient(Handle(window), &point) != 0 && PtInRect(&client, point) != 0)
        SetCursor(cursor.GetRecord().Handle());
}

std::optional<CursorShape> ShownCursor()
{
    POINT point{};
    GetCursorPos(&point);
    DWORD process = 0;
    GetWindowThreadProcessId(WindowFromPoint(point), &process);
    if (process != GetCurrentProcessId())
        return std::nullopt;
    for (int i = 0; i < kCursorShapes; ++i)
        if (const auto shape = CursorShape{i}; Cursor(shape).GetRecord().Handle() == GetCursor())
            return shape;
    return std::nullopt;
}

void CaptureMouse(NativeWindow window)
{
    SetCapture(Handle(window));
    ThrowStopped();
}

void ReleaseMouse()
{
    ReleaseCapture();
    ThrowStopped();
}

NativeWindow CapturingWindow()
{
    return Window(GetCapture());
}

std::uint32_t DoubleClickTime()
{
    return GetDoubleClickTime();
}

} // namespace Platform
