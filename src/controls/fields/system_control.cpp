#include "controls/fields/system_control.h"

#include "controls/base/child_place.h"
#include "drawing/tools/draw_tools.h"

namespace Kesto {

Platform::NativeWindow CSystemControl::GetFocusWindow()
{
    return fHolder.IsShown() ? fHolder.Get()->Handle() : CPane::GetFocusWindow();
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
    if (fHolder.Get() != nullptr)
        WillDropControl();
    fHolder.Drop();
}

PixelRect CSystemControl::GetControlPixels() const
{
    return ChildPixels(*this, GetBounds());
}

// A control whose window has been destroyed is made anew for the next one.
void CSystemControl::FitControl()
{
    if (fHolder.IsLost())
        DropControl();
    fHolder.Fit(
        *this, [this](Platform::NativeWindow window) { return MakeControl(window); },
        GetControlPixels(), WantsControlShown());
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
    if (GetControl() == nullptr)
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
