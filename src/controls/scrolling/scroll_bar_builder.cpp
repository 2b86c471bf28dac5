#include "controls/base/natural_size.h"
#include "controls/scrolling/scroll_bar.h"
#include "layout/build/layout_owner.h"

namespace Kesto {

namespace {

constexpr double kNaturalLength = 60.0;
constexpr PropertyRow kOrientation{VexName("control_orient"), kControlOrient_Default,
                                   "along which it scrolls; its longer side by default"};
constexpr PropertyRow kSize{VexName("control_size"), kControlSize_Normal, "normal or small"};
constexpr PropertyRow kMinimum{VexName("slider_minimum"), 0, "the value at its left or top"};
constexpr PropertyRow kMaximum{VexName("slider_maximum"), 0, "the value at the other end"};
constexpr PropertyRow kValue{VexName("slider_value"), 0, "the value that it begins with"};
constexpr PropertyRow kPage{VexName("scroll_page"), 0, "how much of the contents is seen"};
constexpr PropertyRow kPageStep{VexName("scroll_page_increment"), 0,
                                "a press beside the thumb goes so far; nearly a page by default"};
constexpr PropertyRow kButtonStep{VexName("scroll_button_increment"), 0,
                                  "a press on a button goes so far; a line of text by default"};
constexpr PropertyRow kRows[] = {kOrientation, kSize, kMinimum,  kMaximum,
                                 kValue,       kPage, kPageStep, kButtonStep};

} // namespace

CView* CPaneBuilder<CScrollBar>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    const double across =
        reader.Integer(kSize) == kControlSize_Small ? CScrollBar::kSmallWidth : CScrollBar::kWidth;
    const bool isFlat = reader.Integer(kOrientation) == kControlOrient_Horizontal;
    SetNaturalSize(owner.fLayoutRecord,
                   isFlat ? Point{kNaturalLength, across} : Point{across, kNaturalLength});
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CScrollBar>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CScrollBar>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CScrollBar>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

void CPaneBuilder<CScrollBar>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& bar = static_cast<CScrollBar&>(pane);
    bar.SetOrientation(static_cast<EControlOrientation>(reader.Integer(kOrientation)));
    bar.SetRange(reader.Decimal(kMinimum), reader.Decimal(kMaximum), reader.Decimal(kPage));
    bar.SetIncrements(reader.Decimal(kButtonStep), reader.Decimal(kPageStep));
    bar.SetValue(reader.Decimal(kValue));
}

} // namespace Kesto
