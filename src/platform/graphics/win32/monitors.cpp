#include "platform/graphics/monitors.h"

#include "platform/system/win32/late_function.h"

#include <windows.h>

namespace Platform {
namespace {

constexpr double kUnitsPerInch = 96.0;

PixelRect RectOf(const RECT& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

double SystemScale()
{
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dots > 0 ? dots / kUnitsPerInch : 1.0;
}

// The monitor's own, where the system knows of such (from Windows 8.1 on) and the process has asked
// to see it; else that of the whole system.
double ScaleOf(HMONITOR monitor)
{
    using GetDpiForMonitor = HRESULT WINAPI(HMONITOR, int, UINT*, UINT*);
    static const auto getDpi =
        FindFunction<GetDpiForMonitor>(LoadLibraryW(L"shcore.dll"), "GetDpiForMonitor");
    UINT across = 0;
    UINT down = 0;
    if (getDpi == nullptr || getDpi(monitor, 0, &across, &down) != S_OK || across == 0)
        return SystemScale();
    return across / kUnitsPerInch;
}

BOOL CALLBACK AddMonitor(HMONITOR handle, HDC, RECT*, LPARAM list)
{
    auto& monitors = *reinterpret_cast<std::vector<Monitor>*>(list);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoW(handle, &info)) {
        const bool isPrimary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
        monitors.insert(isPrimary ? monitors.begin() : monitors.end(),
                        {RectOf(info.rcMonitor), RectOf(info.rcWork), ScaleOf(handle)});
    }
    return TRUE;
}

} // namespace

std::vector<Monitor> ListMonitors()
{
    std::vector<Monitor> monitors;
    EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors));
    if (monitors.empty())
        monitors.push_back({{0, 0, 1920, 1080}, {0, 0, 1920, 1080}, 1.0});
    return monitors;
}

// The system has always got some of its own.
bool MakeUpMonitors(std::vector<Monitor>)
{
    return false;
}

} // namespace Platform
