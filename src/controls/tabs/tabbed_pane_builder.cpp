#include "controls/base/natural_size.h"
#include "controls/tabs/tabbed_pane.h"
#include "layout/build/layout_owner.h"

namespace Kesto {

namespace {

constexpr PropertyRow kTitle{VexName("title"), 0, "what its tab says"};
constexpr PropertyRow kPageRows[] = {kTitle};
constexpr PropertyRow kFront{VexName("enclosure_index"), 0,
                             "the page in front at first, counted from 0"};
constexpr PropertyRow kRows[] = {kFront};

void SetIfNotGiven(double& number, double value)
{
    if (!ViewLayoutRecord::IsGiven(number))
        number = value;
}

} // namespace

void CPaneBuilder<CTabPane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kPageRows);
}

std::unique_ptr<CPane> CPaneBuilder<CTabPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CTabPane>(parameters.frame, parameters.id, parameters.options,
                                      parameters.binding);
}

void CPaneBuilder<CTabPane>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    static_cast<CTabPane&>(pane).SetTitle(owner.Properties().Label(kTitle));
}

CView* CPaneBuilder<CTabbedPane>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    constexpr double kEdge = CTabbedPane::kPadding;
    ViewLayoutRecord& record = owner.fLayoutRecord;
    // A key for several margins holds for all of them; what no key gives is set here.
    if (!ViewLayoutRecord::IsGiven(record.margin)) {
        if (!ViewLayoutRecord::IsGiven(record.marginWidth)) {
            SetIfNotGiven(record.marginLeft, kEdge);
            SetIfNotGiven(record.marginRight, kEdge);
        }
        if (!ViewLayoutRecord::IsGiven(record.marginHeight)) {
            SetIfNotGiven(record.marginTop, CTabbedPane::kTabHeight + kEdge);
            SetIfNotGiven(record.marginBottom, kEdge);
        }
    }
    if (record.placement == RecordPlacement::kNotGiven)
        record.placement = RecordPlacement::kOffscreen;
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CTabbedPane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CTabbedPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CTabbedPane>(parameters.frame, parameters.id, parameters.options,
                                         parameters.binding);
}

void CPaneBuilder<CTabbedPane>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const std::int32_t front = owner.Properties().Integer(kFront);
    static_cast<CTabbedPane&>(pane).SetFront(static_cast<std::size_t>(front < 0 ? 0 : front));
}

} // namespace Kesto
