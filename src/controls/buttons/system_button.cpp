#include "controls/buttons/system_button.h"

#include "controls/base/child_place.h"
#include "foundation/alerts/reporter.h"
#include "foundation/errors/system_checks.h"
#include "platform/system/errors.h"
#include "platform/windows/window_paint.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace Kesto {
namespace {

// What a label is called: "&" is no part of it.
std::string NameOf(std::string_view label)
{
    std::string name;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == '&' && ++i == label.size())
            break;
        name += label[i];
    }
    return name;
}

} // namespace

CSystemButton::~CSystemButton()
{
    fHolder.Drop();
}

Platform::ButtonControl* CSystemButton::Control() const
{
    return static_cast<Platform::ButtonControl*>(fHolder.Get());
}

void CSystemButton::FitControl()
{
    if (fHolder.IsLost())
        fHolder.Drop();
    const auto make = [this](Platform::NativeWindow window) {
        Platform::SetLastError(0);
        auto button = Platform::MakeButtonControl(window, *this);
        OSThrowLastNull(button.get(), __FILE__, __LINE__);
        button->SetName(NameOf(GetLabel().View()));
        return button;
    };
    fHolder.Fit(*this, make, ChildPixels(*this, GetBounds()), IsVisible());
    if (Control() != nullptr)
        Control()->SetControlEnabled(IsUsable());
}

Platform::NativeWindow CSystemButton::GetFocusWindow()
{
    return fHolder.IsShown() ? Control()->Handle() : CButton::GetFocusWindow();
}

void CSystemButton::UpdateContext(CContext* context)
{
    CButton::UpdateContext(context);
    if (GetContext() == nullptr)
        fHolder.Drop();
    else
        FitControl();
}

void CSystemButton::DidResize()
{
    CButton::DidResize();
    FitControl();
}

void CSystemButton::UIScaleChanged()
{
    CButton::UIScaleChanged();
    FitControl();
}

void CSystemButton::DidEnable()
{
    CButton::DidEnable();
    FitControl();
}

void CSystemButton::DidDisable()
{
    CButton::DidDisable();
    FitControl();
}

void CSystemButton::SetLabel(CText label)
{
    CButton::SetLabel(std::move(label));
    if (Control() != nullptr)
        Control()->SetName(NameOf(GetLabel().View()));
}

// What is drawn at once has to be shown at once.
void CSystemButton::SetButtonState(EButtonValue value, std::uint32_t track, bool redraw)
{
    const CViewHold hold(*this);
    const bool changes = value != GetValue() || track != fTrack;
    CButton::SetButtonState(value, track, redraw);
    if (changes && redraw && !hold.IsOver() && fHolder.IsShown())
        Platform::UpdateWindowNow(Control()->Handle());
}

void CSystemButton::DrawInContext(const CPaintEvent& event)
{
    CButton::DrawInContext(event);
    FitControl();
    if (Control() != nullptr)
        Control()->Redraw();
}

// Keys of the system's own, which nobody here takes, go on to it.
bool CSystemButton::Intercept(const Platform::WindowMessage& message)
{
    const CViewHold hold(*this);
    if (IsKey(message))
        return SendChildKey(*this, message) || hold.IsOver() || !IsSystemKey(message);
    if (IsWheel(message))
        SendChildWheel(*this, message);
    if (IsPress(message)) {
        const PixelRect pixels = ChildPixels(*this, GetBounds());
        SendChildPress(*this, message, {pixels.left, pixels.top});
    }
    return true;
}

void CSystemButton::ChildFocused(bool)
{
    InvalidateAll();
}

// Another program has pressed it.
void CSystemButton::Clicked()
{
    Handled([this] { Flash(); });
}

// The pane has drawn the button into the window's bitmap; the system's button shows that.
void CSystemButton::DrawButton(const Platform::ButtonState&, const Platform::Bitmap& bitmap)
{
    const CContext* const context = GetContext();
    if (context == nullptr || context->GetBitmap().Bits() == nullptr)
        return;
    const Platform::Bitmap& drawn = context->GetBitmap();
    const PixelRect pixels = ChildPixels(*this, GetBounds());
    const PixelRect within = Platform::Intersect(
        Platform::Intersect(pixels, {0, 0, drawn.Width(), drawn.Height()}),
        {pixels.left, pixels.top, pixels.left + bitmap.Width(), pixels.top + bitmap.Height()});
    if (within.IsEmpty())
        return;
    bitmap.BeginWriting();
    const auto bytes = static_cast<std::size_t>(within.right - within.left) * 4;
    for (std::int32_t y = within.top; y < within.bottom; ++y)
        std::memcpy(bitmap.Bits() + (y - pixels.top) * bitmap.RowBytes() +
                        (within.left - pixels.left) * 4,
                    drawn.Bits() + y * drawn.RowBytes() + within.left * 4, bytes);
    bitmap.EndWriting();
}

} // namespace Kesto
