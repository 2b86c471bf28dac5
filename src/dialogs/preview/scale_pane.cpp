#include "dialogs/preview/scale_pane.h"

#include "view/tree/view_hold.h"

#include <algorithm>

namespace Kesto {

CScalePane::CScalePane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CScrollPane(frame, id, options, binding)
{
}

double CScalePane::UnitsOfPixel() const
{
    return fImageScale / CView::GetScale();
}

void CScalePane::SetImageScale(double scale)
{
    scale = GetRoundedScale(scale);
    if (scale == fImageScale || !(scale > 0.0))
        return;
    const CViewHold hold(*this);
    const Point center = GetPictureCenter();
    fImageScale = scale;
    ResetExtent();
    if (!hold.IsOver())
        CenterPicture(center);
    if (!hold.IsOver())
        ImageScaleChanged();
}

void CScalePane::SetPictureSize(std::int32_t width, std::int32_t height)
{
    fPictureSize = {std::max(width, 0), std::max(height, 0)};
    ResetExtent();
}

void CScalePane::ResetExtent()
{
    const double pixel = UnitsOfPixel();
    SetImageExtent(fPictureSize.x * pixel, fPictureSize.y * pixel);
}

void CScalePane::UIScaleChanged()
{
    const CViewHold hold(*this);
    CScrollPane::UIScaleChanged();
    if (!hold.IsOver())
        ResetExtent();
}

PixelPoint CScalePane::GetDisplaySize() const
{
    const PixelRect pixels = GetDeviceRect();
    return {pixels.right - pixels.left, pixels.bottom - pixels.top};
}

Point CScalePane::GetPictureCenter() const
{
    const double pixel = UnitsOfPixel();
    const Point at = GetImageOrigin();
    const Rect& bounds = GetBounds();
    const auto middle = [&](double first, double length, std::int32_t whole) {
        return first / pixel + std::min(length / pixel, static_cast<double>(whole)) / 2.0;
    };
    return {middle(at.x, bounds.Width(), fPictureSize.x),
            middle(at.y, bounds.Height(), fPictureSize.y)};
}

void CScalePane::CenterPicture(const Point& picture)
{
    const double pixel = UnitsOfPixel();
    const Rect& bounds = GetBounds();
    ScrollTo({picture.x * pixel - bounds.Width() / 2.0, picture.y * pixel - bounds.Height() / 2.0});
}

Rect CScalePane::PictureToLocal(const PixelRect& picture) const
{
    const double pixel = UnitsOfPixel();
    const Rect& image = GetScrollLimits();
    return {image.left + picture.left * pixel, image.top + picture.top * pixel,
            image.left + picture.right * pixel, image.top + picture.bottom * pixel};
}

std::unique_ptr<CPane> CPaneBuilder<CScalePane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CScalePane>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

} // namespace Kesto
