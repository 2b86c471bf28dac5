#include "layout/build/pane_builder.h"

#include "layout/build/common_keys.h"
#include "layout/build/interiors.h"
#include "layout/build/layout_owner.h"
#include "view/tree/pane.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr PropertyRow kOptions{VexName("view_options"), 0, "how it behaves: a sum"};
constexpr PropertyRow kBinding{VexName("view_binding"), 0,
                               "how it follows its parent's edges: a sum"};
constexpr PropertyRow kBoundsWidth{VexName("view_bounds_width"), 0, "of contents that scroll"};
constexpr PropertyRow kBoundsHeight{VexName("view_bounds_height"), 0, "of contents that scroll"};
constexpr PropertyRow kInterior{VexName("frame_interior"), 0,
                                "the part of the parent that it goes into"};

// The keys that set or clear one option, in the order of the bits.
struct OptionRow {
    PropertyRow row;
    std::uint32_t bit;
};
constexpr OptionRow kOptionRows[] = {
    {{VexName("view_invisible"), 0, "hidden"}, kView_Invisible},
    {{VexName("view_disabled"), 0, "can't be used"}, kView_Disabled},
    {{VexName("view_target"), 0, "can have the focus within it"}, kView_Target},
    {{VexName("view_bullseye"), 0, "can have the focus"}, kView_Bullseye},
    {{VexName("view_tabstop"), 0, "the Tab key leads to it"}, kView_TabStop},
    {{VexName("view_target_ring"), 0, "draws a ring when it has the focus"}, kView_TargetRing},
    {{VexName("view_context_click"), 0, "the context button clicks too"}, kView_ContextClick},
    {{VexName("view_invalid_on_activate"), 0, "looks different in an active window"},
     kView_InvalidOnActivate},
    {{VexName("view_draw_buffer"), 0, "drawn off the screen first"}, kView_DrawBuffer},
    {{VexName("view_draw_parts"), 0, "children are drawn over it"}, kView_DrawParts},
    {{VexName("view_chunky_scroll"), 0, "draws its edges anew when it scrolls"},
     kView_ChunkyScroll},
    {{VexName("view_entire_scroll"), 0, "draws all of it anew after a long scroll"},
     kView_EntireScroll},
    {{VexName("view_big_coordinates"), 0, "its contents are larger than a port"},
     kView_BigCoordinates},
    {{VexName("view_ignore_mouse_events"), 0, "the mouse passes through it"},
     kView_IgnoreMouseEvents},
    {{VexName("view_multi_on_mouse_up"), 0, "double clicks count at the release"},
     kView_MultiOnMouseUp},
    {{VexName("view_no_focus_on_click"), 0, "a click leaves the focus where it is"},
     kView_NoFocusOnClick},
    {{VexName("view_no_tab_navigate"), 0, "keeps the Tab key for itself"}, kView_NoTabNavigate},
    {{VexName("view_supress_surrenders"), 0, "can be clicked past an invalid field"},
     kView_SupressSurrenders},
    {{VexName("no_scale_ui_for_font"), 0, "its fonts don't follow the scale of the interface"},
     kView_NoScaleUIForFont},
};

constexpr auto kOptionKeys = [] {
    std::array<PropertyRow, std::size(kOptionRows)> rows{};
    std::ranges::transform(kOptionRows, rows.begin(), &OptionRow::row);
    return rows;
}();

constexpr PropertyRow kPaneRows[] = {
    kViewIdKey, kOptions, kBinding, kBoundsWidth, kBoundsHeight, kInterior,
};

double FirstGiven(double side, double axis, double all)
{
    for (const double number : {side, axis, all})
        if (ViewLayoutRecord::IsGiven(number))
            return number;
    return 0.0;
}

double NumberOr0(double number)
{
    return ViewLayoutRecord::IsGiven(number) ? number : 0.0;
}

Rect FrameOf(const ViewLayoutRecord& record)
{
    const double left = NumberOr0(record.left);
    const double top = NumberOr0(record.top);
    return {left, top, left + std::max(NumberOr0(record.width), 0.0),
            top + std::max(NumberOr0(record.height), 0.0)};
}

} // namespace

std::uint32_t CPaneBuilderBase::ReadOptions(const LayoutOwner& owner) const
{
    const CPropertyReader reader = owner.Properties();
    std::int32_t given = static_cast<std::int32_t>(Options().fallback);
    reader.TryInteger(kOptions.key, given);
    auto options = static_cast<std::uint32_t>(given);
    for (const OptionRow& row : kOptionRows) {
        bool flag = false;
        if (reader.TryFlag(row.row.key, flag))
            options = flag ? options | row.bit : options & ~row.bit;
    }
    return Options().Fixed(options);
}

PaneParameters CPaneBuilderBase::ReadParameters(const LayoutOwner& owner) const
{
    const CPropertyReader reader = owner.Properties();
    std::int32_t binding = static_cast<std::int32_t>(Binding().fallback);
    reader.TryInteger(kBinding.key, binding);
    return {FrameOf(owner.fLayoutRecord), reader.Id(kViewIdKey), ReadOptions(owner),
            Binding().Fixed(static_cast<std::uint32_t>(binding))};
}

CView* CPaneBuilderBase::ConstructView(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    std::unique_ptr<CPane> pane = MakePane(ReadParameters(owner));
    const std::int32_t width = reader.Integer(kBoundsWidth);
    const std::int32_t height = reader.Integer(kBoundsHeight);
    if (width > 0 || height > 0)
        pane->SetImageExtent(width, height);
    ReadKeys(*pane, owner);
    ReadTips(*pane, reader);
    std::int32_t interior = 0;
    if (reader.TryInteger(kInterior.key, interior))
        parent = &InteriorOf(*parent, interior);
    return parent->AppendChild(std::move(pane));
}

CView* CPaneBuilder<CPane>::AdjustLayout(CView*, LayoutOwner& owner)
{
    ViewLayoutRecord& r = owner.fLayoutRecord;
    if (ViewLayoutRecord::IsGiven(r.width))
        r.width += FirstGiven(r.cushionLeft, r.cushionX, r.cushion) +
                   FirstGiven(r.cushionRight, r.cushionX, r.cushion);
    if (ViewLayoutRecord::IsGiven(r.height))
        r.height += FirstGiven(r.cushionTop, r.cushionY, r.cushion) +
                    FirstGiven(r.cushionBottom, r.cushionY, r.cushion);
    BeginBuild(owner);
    return nullptr;
}

void CPaneBuilder<CPane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilderBase::AppendRows(rows);
    rows.push_back(kPaneRows);
    rows.push_back(TipRows());
    rows.push_back(kOptionKeys);
}

std::unique_ptr<CPane> CPaneBuilder<CPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CPane>(parameters.frame, parameters.id, parameters.options,
                                   parameters.binding);
}

} // namespace Kesto
