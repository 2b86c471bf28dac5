#include "controls/frames/group_pane.h"

#include "controls/base/label_text.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr double kPadding = 12.0;
constexpr double kFirstRow = 20.0; // from the top, below the title
constexpr double kTitleGap = 4.0;  // in the frame's line, before and behind the title
constexpr PropertyRow kTitle{VexName("title"), 0, "what stands in the frame's upper line"};
constexpr PropertyRow kFont{VexName("label_font"), kFont_UIBold, "of the title"};
constexpr PropertyRow kStyle{VexName("frame_style"), kFramePrimaryGroup, "the frame around it"};
constexpr PropertyRow kRows[] = {kTitle, kFont};

} // namespace

void CGroupPane::SetTitle(const CText& title, EFontKind font)
{
    fTitle = title;
    fFont = font;
    InvalidateAll(false);
}

// The frame's upper line is broken by the title, on whose middle it lies.
void CGroupPane::DrawFrame()
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    if (fTitle.IsEmpty())
        return GetBorder().Draw(port, bounds);
    port.SetFont(CDrawTools::Get().GetFont(fFont));
    port.SetTextColour(ToolColour(IsUsable() ? kColour_Label : kColour_LabelDisabled));
    const Rect title{bounds.left + kPadding, bounds.top,
                     std::max(bounds.right - kPadding, bounds.left + kPadding),
                     bounds.top + CWidgetSkin::kTextHeight};
    const double width = std::min(port.MeasureText(fTitle.View()), title.Width());
    const Rect frame{bounds.left, bounds.top + CWidgetSkin::kTextHeight / 2, bounds.right,
                     bounds.bottom};
    port.SaveState();
    port.IntersectClip(CBRVRegion(bounds).Subtract(
        {title.left - kTitleGap, title.top, title.left + width + kTitleGap, title.bottom}));
    GetBorder().Draw(port, frame);
    port.RestoreState();
    DrawLabelLine(port, fTitle.View(), title, kText_Left | kText_Ellipsis);
}

// At least as wide as its title, whatever is in it.
CView* CPaneBuilder<CGroupPane>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    ViewLayoutRecord& record = owner.fLayoutRecord;
    const CText title = reader.Label(kTitle);
    if (!title.IsEmpty() && !ViewLayoutRecord::IsGiven(record.width))
        record.width = MeasureLabel(title.View(), static_cast<EFontKind>(reader.Integer(kFont)),
                                    owner.fCurrentView) +
                       2.0 * kPadding;
    return CPaneBuilder<CFramePane>::AdjustLayout(parent, owner);
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
    return {std::max(frame.left, kPadding), std::max(frame.top, hasTitle ? kFirstRow : kPadding),
            std::max(frame.right, kPadding), std::max(frame.bottom, kPadding)};
}

} // namespace Kesto
