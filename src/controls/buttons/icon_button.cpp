#include "controls/buttons/icon_button.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

#include <algorithm>

namespace Kesto {
namespace {

constexpr double kIconSize = 16.0; // taken for the picture that isn't there

} // namespace

void CIconButton::SetIcon(CText icon)
{
    fIcon = std::move(icon);
    fGeneration = 0;
    InvalidateAll();
}

void CIconButton::SetIconOffset(const Point& offset)
{
    fIconOffset = offset;
    InvalidateAll();
}

// The store's states are in the order of the button's.
const CDualPicture& CIconButton::PictureNow() const
{
    const CDrawTools& tools = CDrawTools::Get();
    if (fGeneration != tools.Generation()) {
        fPictures.LoadPictures(CResourceName(fIcon.View()), tools.GetTheme());
        fGeneration = tools.Generation();
    }
    return fPictures.Get(static_cast<EPictureState>(GetDrawState()));
}

Point CIconButton::GetNaturalSize() const
{
    const CButtonGraphic* const graphic = GetGraphic();
    if (fIcon.IsEmpty() && graphic != nullptr && !graphic->GetLabel().IsEmpty())
        return {graphic->GetWidth(), graphic->GetHeight()};
    const CDualPicture& picture = PictureNow();
    const double width = picture.GetWidth() > 0 ? picture.GetWidth() : kIconSize;
    const double height = picture.GetHeight() > 0 ? picture.GetHeight() : kIconSize;
    Rect insets{4, 4, 4, 4};
    if (graphic != nullptr)
        graphic->GetInsets(insets);
    return {width + insets.left + insets.right, height + insets.top + insets.bottom};
}

Rect CIconButton::GetIconRect() const
{
    const Rect& image = GetImage();
    return {image.left + fIconOffset.x, image.top + fIconOffset.y, image.right + fIconOffset.x,
            image.bottom + fIconOffset.y};
}

void CIconButton::DrawContent(CSystemPort& port)
{
    port.DrawIcon(PictureNow(), GetIconRect());
}

Rect CIconButtonDropDown::GetArrowRect() const
{
    const Rect& image = GetImage();
    return {std::max(image.left, image.right - kArrowWidth), image.top, image.right, image.bottom};
}

Point CIconButtonDropDown::GetNaturalSize() const
{
    const Point icon = CIconButton::GetNaturalSize();
    return {icon.x + kArrowWidth, icon.y};
}

Rect CIconButtonDropDown::GetIconRect() const
{
    Rect icon = CIconButton::GetIconRect();
    icon.right -= kArrowWidth;
    return icon;
}

void CIconButtonDropDown::DrawContent(CSystemPort& port)
{
    CIconButton::DrawContent(port);
    port.DrawIcon(CDrawTools::Get().GetPicture(kTool_SmallDropArrow), GetArrowRect());
}

void CIconButtonDropDown::PrimaryClick(const CMouseEvent& event)
{
    const Rect arrow = GetArrowRect();
    const Point place = PortToLocal(event.fPortPoint);
    if (!fOpenMenu || place.x < arrow.left || !IsUsable() || !IsActive())
        return CIconButton::PrimaryClick(event);
    const PixelRect screen = GetGlobalRect();
    fOpenMenu(*this, {screen.left, screen.bottom});
}

} // namespace Kesto
