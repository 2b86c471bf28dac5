#include "controls/sliders/progress_bar.h"

#include "controls/base/natural_size.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "layout/build/layout_owner.h"

#include <cmath>

namespace Kesto {

namespace {

constexpr double kNaturalWidth = 120.0;
constexpr double kBarRoom = 1.0; // at both ends, as all bodies of controls have it
constexpr PropertyRow kMinimum{VexName("slider_minimum"), 0, "the value with nothing done"};
constexpr PropertyRow kMaximum{VexName("slider_maximum"), 100, "the value with all done"};
constexpr PropertyRow kValue{VexName("slider_value"), 0, "the value that it begins with"};
constexpr PropertyRow kAutoHide{VexName("progress_auto_hide"), 0,
                                "hidden while nothing or all is done"};
constexpr PropertyRow kRows[] = {kMinimum, kMaximum, kValue, kAutoHide};

} // namespace

void CProgressBar::SetValue(double value)
{
    value = fRange.Pinned(value);
    if (value == fValue || std::isnan(value))
        return;
    fValue = value;
    Follow();
}

void CProgressBar::SetRange(double first, double last)
{
    if (!std::isfinite(first) || !std::isfinite(last))
        return;
    fRange = {first, last};
    fValue = fRange.Pinned(fValue);
    Follow();
}

void CProgressBar::SetAutoHide(bool on)
{
    fAutoHide = on;
    if (on)
        Follow();
    else
        Show();
}

void CProgressBar::Follow()
{
    if (fAutoHide)
        SetShown(fValue != fRange.first && fValue != fRange.last);
    InvalidateAll();
}

// In the middle of the height that it has.
void CProgressBar::DrawInContext(const CPaintEvent&)
{
    const Rect& bounds = GetBounds();
    const double top = bounds.top + std::floor((bounds.Height() - kHeight) / 2);
    const Rect bar{bounds.left + kBarRoom, top, bounds.right - kBarRoom, top + kHeight};
    if (!bar.IsEmpty())
        CWidgetSkin::DrawProgress(*GetPort(), bar, fRange.ShareOf(fValue), IsUsable());
}

CView* CPaneBuilder<CProgressBar>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    SetNaturalSize(owner.fLayoutRecord, {kNaturalWidth, CProgressBar::kHeight});
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CProgressBar>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CProgressBar>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CProgressBar>(parameters.frame, parameters.id, parameters.options,
                                          parameters.binding);
}

void CPaneBuilder<CProgressBar>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& bar = static_cast<CProgressBar&>(pane);
    bar.SetRange(reader.Decimal(kMinimum), reader.Decimal(kMaximum));
    bar.SetValue(reader.Decimal(kValue));
    bar.SetAutoHide(reader.Flag(kAutoHide));
}

} // namespace Kesto
