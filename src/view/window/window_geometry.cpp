// Where the window is, and how it gets elsewhere.
#include "platform/windows/window_place.h"
#include "view/window/window.h"

#include <algorithm>

namespace Kesto {

using Platform::Monitor;
using Platform::PixelRect;

Platform::PixelRect CWindow::GetWindowFrame() const
{
    return Platform::FrameOf(fWindow);
}

Platform::PixelRect CWindow::GetWindowBounds() const
{
    return Platform::ContentOf(fWindow);
}

void CWindow::MoveWindow(const PixelPoint& corner)
{
    const PixelRect frame = GetWindowFrame();
    const std::int32_t x = corner.x - frame.left;
    const std::int32_t y = corner.y - frame.top;
    const PixelRect now = GetWindowBounds();
    Platform::PlaceContent(fWindow, {now.left + x, now.top + y, now.right + x, now.bottom + y});
}

// Without a native window the tree alone takes the size, and the window has it when it is made.
void CWindow::SizeWindow(const Point& size)
{
    if (fWindow == nullptr) {
        SetContextSize(size);
        return;
    }
    const PixelRect now = GetWindowBounds();
    Platform::PlaceContent(fWindow,
                           {now.left, now.top, now.left + ToDevice(size.x, GetScaleFactor()),
                            now.top + ToDevice(size.y, GetScaleFactor())});
}

void CWindow::MinimizeWindow()
{
    Platform::ShowSystemWindow(fWindow, Platform::ShowCommand::kMinimize);
}

void CWindow::MaximizeWindow()
{
    PutWindowState(kWindow_Zooming, true);
    Platform::ShowSystemWindow(fWindow, Platform::ShowCommand::kMaximized);
    PutWindowState(kWindow_Zooming, false);
    PutWindowState(kWindow_Maximized, IsFloat());
}

void CWindow::RestoreWindow()
{
    Platform::ShowSystemWindow(fWindow, Platform::ShowCommand::kRestore);
    PutWindowState(kWindow_Maximized, false);
}

void CWindow::ToggleZoom()
{
    if (Platform::IsMaximized(fWindow))
        RestoreWindow();
    else
        MaximizeWindow();
}

void CWindow::CenterOnScreen()
{
    const std::vector<Monitor> monitors = Platform::ListMonitors();
    const PixelRect frame = GetWindowFrame();
    const PixelRect& area = monitors[Platform::MonitorOf(monitors, frame)].workArea;
    MoveWindow({(area.left + area.right - (frame.right - frame.left)) / 2,
                (area.top + area.bottom - (frame.bottom - frame.top)) / 2});
}

void CWindow::CenterOnOwner()
{
    const PixelRect owner = Platform::FrameOf(fOwnerWindow);
    const PixelRect frame = GetWindowFrame();
    if (owner.IsEmpty()) {
        CenterOnScreen();
        return;
    }
    MoveWindow({(owner.left + owner.right - (frame.right - frame.left)) / 2,
                (owner.top + owner.bottom - (frame.bottom - frame.top)) / 2});
    FitOnMonitor();
}

void CWindow::FitOnMonitor()
{
    const std::vector<Monitor> monitors = Platform::ListMonitors();
    const PixelRect frame = GetWindowFrame();
    const PixelRect& area = monitors[Platform::MonitorOf(monitors, frame)].workArea;
    const auto pulled = [](std::int32_t start, std::int32_t end, std::int32_t from,
                           std::int32_t to) {
        return std::max(std::min(start, to - (end - start)), from);
    };
    MoveWindow({pulled(frame.left, frame.right, area.left, area.right),
                pulled(frame.top, frame.bottom, area.top, area.bottom)});
}

void CWindow::SetTitle(const CText& title)
{
    fTitle = title;
    Platform::SetWindowTitle(fWindow, title.CStr());
}

PixelRect CWindow::StartPlace() const
{
    const std::vector<Monitor> monitors = Platform::ListMonitors();
    const PixelRect owner = Platform::FrameOf(fOwnerWindow);
    const std::size_t monitor = StartMonitor(
        fPlacement, monitors, owner.IsEmpty() ? 0 : Platform::MonitorOf(monitors, owner));
    const Platform::FrameInsets insets = Platform::InsetsOf(fWindow);
    return PlaceOnMonitor(fPlacement, monitors[monitor],
                          {GetBounds().Width(), GetBounds().Height()}, GetScaleFactor(),
                          {insets.left, insets.top, insets.right, insets.bottom});
}

// In units from the corner of the work area, of the frame; the size is the content's.
void CWindow::SavePlacement()
{
    if (fWindow == nullptr)
        return;
    const bool isNormal = !Platform::IsMinimized(fWindow) && !Platform::IsMaximized(fWindow);
    if (isNormal && !Platform::IsShown(fWindow))
        return;
    const PixelRect content = Platform::NormalContentOf(fWindow);
    const std::vector<Monitor> monitors = Platform::ListMonitors();
    const PixelRect& area = monitors[Platform::MonitorOf(monitors, content)].workArea;
    const Platform::FrameInsets insets = Platform::InsetsOf(fWindow);
    const double scale = GetScaleFactor();
    const double left = (content.left - insets.left - area.left) / scale;
    const double top = (content.top - insets.top - area.top) / scale;
    const double width = (content.right - content.left) / scale;
    const double height = (content.bottom - content.top) / scale;
    if (HasWindowState(kWindow_Maximized)) {
        fPlacement.last = {left, top, left + width, top + height};
        return;
    }
    fPlacement.positionX = std::max(left, 0.0);
    fPlacement.positionY = std::max(top, 0.0);
    fPlacement.user = {double(content.left - insets.left), double(content.top - insets.top),
                       double(content.right + insets.right),
                       double(content.bottom + insets.bottom)};
    fPlacement.sizeX = width;
    fPlacement.sizeY = height;
    fPlacement.state = Platform::IsMinimized(fWindow)   ? kWinState_Minimized
                       : Platform::IsMaximized(fWindow) ? kWinState_Maximized
                                                        : kWinState_Normal;
}

} // namespace Kesto
