#include "platform/windows/win32/dpi.h"

#include "platform/system/win32/late_function.h"

namespace Platform {
namespace {

// The two best kinds of awareness that there are; systems before version 10 know neither.
const HANDLE kPerMonitorV2 = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-4));
const HANDLE kPerMonitor = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-3));

HANDLE SetAwareness(HANDLE awareness)
{
    static const auto set = FindUserFunction<HANDLE WINAPI(HANDLE)>("SetThreadDpiAwarenessContext");
    return set != nullptr ? set(awareness) : nullptr;
}

} // namespace

DpiScope::DpiScope(bool perMonitor)
{
    if (!perMonitor)
        return;
    fBefore = SetAwareness(kPerMonitorV2);
    if (fBefore == nullptr)
        fBefore = SetAwareness(kPerMonitor);
}

DpiScope::~DpiScope()
{
    if (fBefore != nullptr)
        SetAwareness(fBefore);
}

UINT DpiOf(HWND window)
{
    static const auto ofWindow = FindUserFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
    if (ofWindow != nullptr && window != nullptr)
        if (const UINT dpi = ofWindow(window))
            return dpi;
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

} // namespace Platform
