#include "controls/base/placeholder_pane.h"

#include "controls/base/label_text.h"
#include "controls/base/natural_size.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kLabelRoom = 24.0; // beside a label, both sides together
constexpr PropertyRow kLabelRows[] = {
    {VexName("button_label"), 0, "what it says"},
    {VexName("label"), 0, "what it says"},
    {VexName("title"), 0, "what it says"},
};

} // namespace

void CPlaceholderPane::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    port.Paint(bounds, ToolColour(kColour_Panel));
    port.Frame(bounds, ToolColour(kColour_BorderDisabled));
    port.SetFont(CDrawTools::Get().GetFont(kFont_UI));
    port.SetTextColour(ToolColour(kColour_LabelDim));
    port.DrawTextBox(fLabel.View(), bounds, kText_Centred | kText_Ellipsis);
}

CText CPaneBuilder<CPlaceholderPane>::ReadLabel(const LayoutOwner& owner) const
{
    for (const PropertyRow& row : kLabelRows)
        if (CText label; owner.Properties().TryLabel(row.key, label) && !label.IsEmpty())
            return label;
    return {};
}

CView* CPaneBuilder<CPlaceholderPane>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    Point size = fSize;
    if (const CText label = ReadLabel(owner); !label.IsEmpty())
        size.x = std::max(size.x, WidestAtScales(MeasuringPort(owner.fCurrentView, kFont_UI),
                                                 [&](const CSystemPort& port) {
                                                     return port.MeasureText(label.View());
                                                 }) +
                                      kLabelRoom);
    SetNaturalSize(owner.fLayoutRecord, size);
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CPlaceholderPane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kLabelRows);
}

std::unique_ptr<CPane>
CPaneBuilder<CPlaceholderPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CPlaceholderPane>(parameters.frame, parameters.id, parameters.options,
                                              parameters.binding);
}

void CPaneBuilder<CPlaceholderPane>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CText label = ReadLabel(owner);
    static_cast<CPlaceholderPane&>(pane).SetLabel(label.IsEmpty() ? CText(Name()) : label);
}

} // namespace Kesto
