// How what is invalid and what was drawn get to the native window.
#include "drawing/tools/draw_tools.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/window_paint.h"
#include "view/window/window.h"

namespace Kesto {

void CWindow::DrawBackground()
{
    if (CSystemPort* const port = GetPort())
        port->Paint(GetBounds(), ToolColour(kColour_Window));
}

void CWindow::AddInvalid(const CDeviceRegion& pixels)
{
    CContext::AddInvalid(pixels);
    Platform::InvalidateWindow(fWindow, pixels.GetRects());
}

void CWindow::RemoveInvalid(const CDeviceRegion& pixels)
{
    CContext::RemoveInvalid(pixels);
    Platform::ValidateWindow(fWindow, pixels.GetRects());
}

void CWindow::UpdateNow()
{
    if (fWindow == nullptr)
        CContext::UpdateNow();
    else
        Platform::UpdateWindowNow(fWindow);
}

void CWindow::PixelsDrawn(const CDeviceRegion& pixels)
{
    Platform::PresentBitmap(fWindow, GetBitmap(), pixels.GetRects());
}

double CWindow::GetDoubleClickTime() const
{
    return Platform::DoubleClickTime() / 1000.0;
}

void CWindow::ShowPortCursor(const Platform::Cursor* cursor)
{
    Platform::SetWindowCursor(fWindow, cursor != nullptr ? *cursor : Platform::Cursor());
}

void CWindow::ShowTipOf(CPane* pane)
{
    if (pane != nullptr)
        fTips.OpenFor(*pane);
    else
        fTips.Dismiss();
}

// What is dragged has the mouse outside of the window too.
void CWindow::SetTracker(CViewTracker* tracker)
{
    CContext::SetTracker(tracker);
    if (tracker != nullptr)
        Platform::CaptureMouse(fWindow);
    else if (fWindow != nullptr && Platform::CapturingWindow() == fWindow)
        Platform::ReleaseMouse();
}

} // namespace Kesto
