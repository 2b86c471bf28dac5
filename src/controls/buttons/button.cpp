#include "controls/buttons/button.h"

namespace Kesto {

CButton::CButton(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding,
                 EButtonKind kind, CText label, bool isDefault,
                 std::unique_ptr<CButtonGraphic> graphic)
    : CCustomButton(frame, id, options, binding, kind, std::move(label), isDefault),
      fGraphic(std::move(graphic))
{
}

void CButton::SetGraphic(std::unique_ptr<CButtonGraphic> graphic)
{
    fGraphic = std::move(graphic);
    fNaturalSize = {-1.0, -1.0};
    InvalidateAll();
}

Point CButton::GetNaturalSize() const
{
    if (fNaturalSize.x < 0) {
        const CButtonGraphic plain(nullptr, kButtonStyle_Push, GetLabel());
        const CButtonGraphic& graphic = fGraphic != nullptr ? *fGraphic : plain;
        fNaturalSize = {graphic.GetWidth(), graphic.GetHeight()};
    }
    return fNaturalSize;
}

void CButton::SetLabel(CText label)
{
    if (fGraphic != nullptr)
        fGraphic->SetLabel(label);
    fNaturalSize = {-1.0, -1.0};
    CCustomButton::SetLabel(std::move(label));
}

void CButton::SetFont(EFontKind font)
{
    if (fGraphic != nullptr)
        fGraphic->SetFont(font);
    fNaturalSize = {-1.0, -1.0};
    CCustomButton::SetFont(font);
}

void CButton::UIScaleChanged()
{
    fNaturalSize = {-1.0, -1.0};
}

void CButton::DrawInContext(const CPaintEvent& event)
{
    CSystemPort* const port = GetPort();
    if (fGraphic == nullptr || port == nullptr)
        return CCustomButton::DrawInContext(event);
    Rect insets;
    fGraphic->GetInsets(insets);
    const Rect& image = GetImage();
    // A frame without an inside is not drawn: the graphic would turn it inside out.
    if (image.Width() <= insets.left + insets.right || image.Height() <= insets.top + insets.bottom)
        return;
    const EButtonState state = GetDrawState();
    fGraphic->SetFrame(image, GetTailWidth());
    fGraphic->SetState(state, GetValue());
    fGraphic->SetDefault(IsDefault() && CanShowDefaultRing(state));
    fGraphic->SetCues(ShowsCues(), IsBullseye() && IsActive());
    fGraphic->Draw(*port);
    DrawContent(*port);
}

} // namespace Kesto
