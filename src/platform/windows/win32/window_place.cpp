#include "platform/windows/window_place.h"

#include "platform/input/stopped_exception.h"
#include "platform/windows/win32/dpi.h"
#include "platform/windows/win32/window_record.h"

namespace Platform {
namespace {

PixelRect FromSystem(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

} // namespace

PixelRect FrameOf(NativeWindow window)
{
    RECT rect{};
    GetWindowRect(Handle(window), &rect);
    return FromSystem(rect);
}

PixelRect ContentOf(NativeWindow window)
{
    RECT rect{};
    GetClientRect(Handle(window), &rect);
    MapWindowPoints(Handle(window), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return FromSystem(rect);
}

FrameInsets InsetsOf(NativeWindow window)
{
    const HWND handle = Handle(window);
    if (IsWindow(handle) == 0)
        return {};
    if (IsIconic(handle) == 0) {
        const PixelRect frame = FrameOf(window);
        const PixelRect content = ContentOf(window);
        return {content.left - frame.left, content.top - frame.top, frame.right - content.right,
                frame.bottom - content.bottom};
    }
    RECT rect{};
    AdjustWindowRectEx(&rect, static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_EXSTYLE)));
    return {-rect.left, -rect.top, rect.right, rect.bottom};
}

// A document of a frame lies in pixels of the frame's client.
void PlaceContent(NativeWindow window, const PixelRect& content)
{
    const HWND handle = Handle(window);
    const FrameInsets insets = InsetsOf(window);
    POINT corner{content.left - insets.left, content.top - insets.top};
    if ((GetWindowLongPtrW(handle, GWL_STYLE) & WS_CHILD) != 0)
        ScreenToClient(GetAncestor(handle, GA_PARENT), &corner);
    SetWindowPos(handle, nullptr, corner.x, corner.y,
                 content.right - content.left + insets.left + insets.right,
                 content.bottom - content.top + insets.top + insets.bottom,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    ThrowStopped();
}

// The system keeps the usual place in pixels of the work area, but for tool windows.
PixelRect NormalContentOf(NativeWindow window)
{
    const HWND handle = Handle(window);
    if (IsIconic(handle) == 0 && IsZoomed(handle) == 0)
        return ContentOf(window);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetWindowPlacement(handle, &placement) == 0 ||
        GetMonitorInfoW(MonitorFromWindow(handle, MONITOR_DEFAULTTOPRIMARY), &monitor) == 0)
        return {};
    RECT frame{};
    const auto extended = static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_EXSTYLE));
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_STYLE)), FALSE,
                       extended);
    const RECT& normal = placement.rcNormalPosition;
    const bool isOfScreen = (extended & WS_EX_TOOLWINDOW) != 0;
    const LONG x = isOfScreen ? 0 : monitor.rcWork.left - monitor.rcMonitor.left;
    const LONG y = isOfScreen ? 0 : monitor.rcWork.top - monitor.rcMonitor.top;
    return {normal.left + x - frame.left, normal.top + y - frame.top,
            normal.right + x - frame.right, normal.bottom + y - frame.bottom};
}

double ScaleOf(NativeWindow window)
{
    return static_cast<double>(DpiOf(Handle(window))) / USER_DEFAULT_SCREEN_DPI;
}

} // namespace Platform
