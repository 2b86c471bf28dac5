#include "platform/mouse.h"

#include <windows.h>

namespace Platform {

ScreenPoint CursorPosition()
{
    POINT point{};
    GetCursorPos(&point);
    return {point.x, point.y};
}

bool AreButtonsSwapped()
{
    return GetSystemMetrics(SM_SWAPBUTTON) != 0;
}

NativeWindow WindowAt(ScreenPoint point)
{
    const HWND window = WindowFromPoint({point.x, point.y});
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? window : nullptr;
}

} // namespace Platform
