#include "controls/base/natural_size.h"
#include "controls/scrolling/scroller.h"
#include "layout/build/layout_owner.h"

namespace Kesto {

namespace {

constexpr Point kNaturalSize{64.0, 64.0};

constexpr PropertyRow kAttributes{VexName("scroller_attributes"), kScroller_AllControls,
                                  "its bars and other parts: a sum"};

// The keys that set or clear one attribute.
struct AttributeRow {
    PropertyRow row;
    std::uint32_t bit;
};
constexpr AttributeRow kAttributeRows[] = {
    {{VexName("scroller_horizontal_bar"), 0, "has a bar below"}, kScroller_XBar},
    {{VexName("scroller_vertical_bar"), 0, "has a bar at its right"}, kScroller_YBar},
    {{VexName("scroller_size_box"), 0, "its corner resizes the window"}, kScroller_SizeBox},
    {{VexName("scroller_well_frame"), 0, "has a frame"}, kScroller_WellFrame},
    {{VexName("scroller_autohide_scrollbars"), 0, "hides a bar with nothing to scroll"},
     kScroller_AutoHideScrollBars},
};

constexpr auto kAttributeKeys = [] {
    std::array<PropertyRow, std::size(kAttributeRows)> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = kAttributeRows[i].row;
    return rows;
}();

constexpr PropertyRow kGapLeft{VexName("scroller_gap_left"), 0,
                               "units left of the lower bar, for a child"};
constexpr PropertyRow kGapTop{VexName("scroller_gap_top"), 0, "above the bar at the right"};
constexpr PropertyRow kGapRight{VexName("scroller_gap_right"), 0, "right of the lower bar"};
constexpr PropertyRow kGapBottom{VexName("scroller_gap_bottom"), 0, "below the bar at the right"};
constexpr PropertyRow kRows[] = {kAttributes, kGapLeft, kGapTop, kGapRight, kGapBottom};

void SetIfNotGiven(double& number, double value)
{
    if (!ViewLayoutRecord::IsGiven(number))
        number = value;
}

} // namespace

std::uint32_t CPaneBuilder<CScroller>::ReadAttributes(const CPropertyReader& reader) const
{
    std::uint32_t attributes = DefaultAttributes();
    if (std::int32_t given = 0; reader.TryInteger(kAttributes.key, given))
        attributes = static_cast<std::uint32_t>(given);
    for (const AttributeRow& row : kAttributeRows) {
        bool flag = false;
        if (reader.TryFlag(row.row.key, flag))
            attributes = flag ? attributes | row.bit : attributes & ~row.bit;
    }
    return attributes;
}

CView* CPaneBuilder<CScroller>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const Rect edges = CScroller::EdgesOf(ReadAttributes(owner.Properties()));
    ViewLayoutRecord& record = owner.fLayoutRecord;
    SetNaturalSize(record, kNaturalSize);
    if (!ViewLayoutRecord::IsGiven(record.margin)) {
        SetIfNotGiven(record.marginLeft, edges.left);
        SetIfNotGiven(record.marginTop, edges.top);
        SetIfNotGiven(record.marginRight, edges.right);
        SetIfNotGiven(record.marginBottom, edges.bottom);
    }
    if (record.placement == RecordPlacement::kNotGiven)
        record.placement = RecordPlacement::kOffscreen;
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CScroller>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
    rows.push_back(kAttributeKeys);
}

std::unique_ptr<CPane> CPaneBuilder<CScroller>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CScroller>(parameters.frame, parameters.id, parameters.options,
                                       parameters.binding);
}

void CPaneBuilder<CScroller>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    static_cast<CScroller&>(pane).SetAttributes(
        ReadAttributes(reader), {reader.Decimal(kGapLeft), reader.Decimal(kGapTop),
                                 reader.Decimal(kGapRight), reader.Decimal(kGapBottom)});
}

} // namespace Kesto
