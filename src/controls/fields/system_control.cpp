#include "controls/fields/system_control.h"

#include "controls/base/child_place.h"
#include "drawing/tools/draw_tools.h"
#include "platform/windows/focus.h"

namespace Kesto {

Platform::NativeWindow CSystemControl::GetFocusWindow()
{
    return fIsShown ? fControl->Handle() : CPane::GetFocusWindow();
}

void CSystemControl::ContextDidChange()
{
    if (GetContext() == nullptr)
        DropControl();
    else
        FitControl();
}

void CSystemControl::DropControl()
{
    if (fControl == nullptr)
        return;
    WillDropControl();
    fIsShown = false;
    fControl.reset();
}

PixelRect CSystemControl::GetControlPixels() const
{
    return ChildPixels(*this, GetBounds());
}

// A control whose window has gone is made anew for the next one. The one that has the keyboard
// keeps it when it is shown.
void CSystemControl::FitControl()
{
    const Platform::NativeWindow window = NativeWindowOf(*this);
    if (fControl != nullptr && fControl->Handle() == nullptr)
        DropControl();
    if (fControl == nullptr && window != nullptr)
        fControl = MakeControl(window);
    if (fControl == nullptr)
        return;
    const bool shown = WantsControlShown() && IsWhollyInSight(*this, GetBounds());
    fControl->Place(GetControlPixels());
    if (shown == fIsShown)
        return;
    fIsShown = shown;
    fControl->SetShown(shown);
    if (shown && IsBullseye() && Platform::FrontmostWindow() == window)
        Platform::FocusWindow(fControl->Handle());
}

void CSystemControl::PortOffset()
{
    FitControl();
}

void CSystemControl::DidResize()
{
    CPane::DidResize();
    FitControl();
}

void CSystemControl::DidShow()
{
    FitControl();
}

void CSystemControl::DidHide()
{
    FitControl();
}

void CSystemControl::DidEnable()
{
    FitControl();
}

void CSystemControl::DidDisable()
{
    FitControl();
}

void CSystemControl::UIScaleChanged()
{
    LookChanged();
    FitControl();
}

// Panes above scroll and themes change without telling anybody but by painting.
void CSystemControl::DrawInContext(const CPaintEvent&)
{
    if (fControl == nullptr)
        return;
    if (const std::uint32_t now = CDrawTools::Get().Generation(); now != fGeneration) {
        fGeneration = now;
        LookChanged();
    }
    FitControl();
}

bool CSystemControl::InterceptMessage(const Platform::WindowMessage& message)
{
    if (IsKey(message))
        return SendChildKey(*this, message);
    if (IsWheel(message))
        return SendChildWheel(*this, message);
    if (!IsPress(message))
        return false;
    const PixelRect pixels = GetControlPixels();
    return !SendChildPress(*this, message, {pixels.left, pixels.top});
}

std::unique_ptr<CPane>
CPaneBuilder<CSystemControl>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CSystemControl>(parameters.frame, parameters.id, parameters.options,
                                            parameters.binding);
}

} // namespace Kesto
