#include "controls/frames/group_pane.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr double kPadding = 12.0;
constexpr double kFirstRow = 20.0; // from the top, below the title
constexpr PropertyRow kTitle{VexName("title"), 0, "what stands above the frame"};
constexpr PropertyRow kFont{VexName("label_font"), kFont_UIBold, "of the title"};
constexpr PropertyRow kStyle{VexName("frame_style"), kFramePrimaryGroup,
                             "the frame below the title"};
constexpr PropertyRow kRows[] = {kTitle, kFont};

} // namespace

void CGroupPane::SetTitle(const CText& title, EFontKind font)
{
    fTitle = title;
    fFont = font;
    InvalidateAll(false);
}

void CGroupPane::DrawFrame()
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    Rect below = bounds;
    below.top += CWidgetSkin::kTextHeight;
    GetBorder().Draw(port, fTitle.IsEmpty() ? bounds : below);
    port.SetFont(CDrawTools::Get().GetFont(fFont));
    port.SetTextColour(ToolColour(IsUsable() ? kColour_Label : kColour_LabelDisabled));
    port.DrawTextLine(fTitle.View(),
                      {bounds.left, bounds.top + CWidgetSkin::BaseLine(CWidgetSkin::kTextHeight)});
}

void CPaneBuilder<CGroupPane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CFramePane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CGroupPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CGroupPane>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

void CPaneBuilder<CGroupPane>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CFramePane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    static_cast<CGroupPane&>(pane).SetTitle(reader.Label(kTitle),
                                            static_cast<EFontKind>(reader.Integer(kFont)));
}

const PropertyRow& CPaneBuilder<CGroupPane>::StyleRow() const
{
    return kStyle;
}

Rect CPaneBuilder<CGroupPane>::ReadEdges(const LayoutOwner& owner) const
{
    const Rect frame = CPaneBuilder<CFramePane>::ReadEdges(owner);
    const bool hasTitle = !owner.Properties().Label(kTitle).IsEmpty();
    return {std::max(frame.left, kPadding),
            std::max(frame.top, hasTitle ? kFirstRow + kPadding : kPadding),
            std::max(frame.right, kPadding), std::max(frame.bottom, kPadding)};
}

} // namespace Kesto
