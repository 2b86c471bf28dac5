#include "platform/graphics/monitors.h"

#include "platform/system/win32/late_function.h"

#include <algorithm>
#include <windows.h>

namespace Platform {
namespace {

PixelRect FromSystem(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// Dots per inch of a monitor, where the system tells them apart.
UINT DpiOf(HMONITOR monitor)
{
    using Ask = HRESULT WINAPI(HMONITOR, int, UINT*, UINT*);
    static const HMODULE library = LoadLibraryW(L"shcore.dll");
    static const auto ask = reinterpret_cast<Ask*>(reinterpret_cast<void*>(
        library != nullptr ? GetProcAddress(library, "GetDpiForMonitor") : nullptr));
    UINT x = 0;
    UINT y = 0;
    if (ask != nullptr && ask(monitor, 0, &x, &y) == S_OK && x != 0)
        return x;
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

BOOL CALLBACK Note(HMONITOR monitor, HDC, LPRECT, LPARAM list)
{
    auto& monitors = *reinterpret_cast<std::vector<Monitor>*>(list);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(monitor, &info) == 0)
        return TRUE;
    monitors.push_back({FromSystem(info.rcMonitor), FromSystem(info.rcWork),
                        static_cast<double>(DpiOf(monitor)) / USER_DEFAULT_SCREEN_DPI});
    if ((info.dwFlags & MONITORINFOF_PRIMARY) != 0)
        std::swap(monitors.front(), monitors.back());
    return TRUE;
}

} // namespace

std::vector<Monitor> ListMonitors()
{
    std::vector<Monitor> monitors;
    EnumDisplayMonitors(nullptr, nullptr, Note, reinterpret_cast<LPARAM>(&monitors));
    if (monitors.empty()) {
        const PixelRect whole{0, 0, std::max(GetSystemMetrics(SM_CXSCREEN), 1),
                              std::max(GetSystemMetrics(SM_CYSCREEN), 1)};
        monitors.push_back({whole, whole, 1.0});
    }
    return monitors;
}

} // namespace Platform
