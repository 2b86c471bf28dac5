#include "controls/text/static_image.h"

#include "controls/base/natural_size.h"
#include "drawing/ports/system_port.h"
#include "images/icons/resource_name.h"
#include "layout/build/layout_owner.h"

namespace Kesto {

namespace {

constexpr PropertyRow kIcon{VexName("icon"), 0, "the name of a picture in the icon store"};
// An axis falls to the whole.
constexpr PropertyRow kOffset{VexName("icon_offset"), 0, "moves it from its top left corner"};
constexpr PropertyRow kOffsetX{VexName("icon_offset_x"), 0, ""};
constexpr PropertyRow kOffsetY{VexName("icon_offset_y"), 0, ""};
constexpr PropertyRow kRows[] = {kIcon, kOffset, kOffsetX, kOffsetY};

Point ReadOffset(const CPropertyReader& reader)
{
    std::int32_t x = reader.Integer(kOffset);
    std::int32_t y = x;
    reader.TryInteger(kOffsetX.key, x);
    reader.TryInteger(kOffsetY.key, y);
    return {static_cast<double>(x), static_cast<double>(y)};
}

CDualPicture PictureOf(const CText& name)
{
    CDualPicture picture;
    if (!name.IsEmpty())
        picture.LoadPicture(CResourceName(name.CStr()));
    return picture;
}

} // namespace

void CStaticImage::SetPicture(const CText& name)
{
    fPicture = PictureOf(name);
    InvalidateAll();
}

void CStaticImage::DrawInContext(const CPaintEvent&)
{
    const Rect& bounds = GetBounds();
    GetPort()->DrawPicture(fPicture, Point{bounds.left + fOffset.x, bounds.top + fOffset.y});
}

CView* CPaneBuilder<CStaticImage>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CDualPicture picture = PictureOf(owner.Properties().Text(kIcon));
    SetNaturalSize(owner.fLayoutRecord, {static_cast<double>(picture.GetWidth()),
                                         static_cast<double>(picture.GetHeight())});
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CStaticImage>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CStaticImage>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CStaticImage>(parameters.frame, parameters.id, parameters.options,
                                          parameters.binding);
}

void CPaneBuilder<CStaticImage>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    auto& image = static_cast<CStaticImage&>(pane);
    image.SetPicture(owner.Properties().Text(kIcon));
    image.SetOffset(ReadOffset(owner.Properties()));
}

} // namespace Kesto
