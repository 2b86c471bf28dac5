#include "layout/build/window_builder.h"

#include "layout/build/common_keys.h"
#include "layout/build/layout_owner.h"

#include <algorithm>
#include <array>

namespace Kesto {

namespace {

constexpr PropertyRow kTitle{VexName("window_title"), 0, "what its title bar says"};
constexpr PropertyRow kStyle{VexName("window_style"), kWin_Document,
                             "its kind, in classes without a kind of their own"};
constexpr PropertyRow kFeatures{VexName("window_features"),
                                kWin_CanClose + kWin_CanMove + kWin_CanTarget,
                                "what can be done with it: a sum"};
constexpr PropertyRow kAutoOpen{VexName("window_auto_open"), 0,
                                "opens when what it runs below starts"};

constexpr PropertyRow kWindowRows[] = {kViewIdKey, kTitle, kStyle, kFeatures, kAutoOpen};

// The keys that set or clear one feature, in the order of the bits.
struct FeatureRow {
    PropertyRow row;
    std::uint32_t bit;
};
constexpr FeatureRow kFeatureRows[] = {
    {{VexName("window_can_close"), 0, "has a close box and a close key"}, kWin_CanClose},
    {{VexName("window_can_move"), 0, "can be moved by its title"}, kWin_CanMove},
    {{VexName("window_can_size"), 0, "can be sized by its edges"}, kWin_CanSize},
    {{VexName("window_has_size_box"), 0, "has a box in its corner to size it by"}, kWin_HasSizeBox},
    {{VexName("window_live_resize"), 0, "follows the size box while it is dragged"},
     kWin_LiveResize},
    {{VexName("window_can_zoom"), 0, "can fill its monitor"}, kWin_CanZoom},
    {{VexName("window_can_maximize"), 0, "the same"}, kWin_CanMaximize},
    {{VexName("window_can_collapse"), 0, "can be put out of the way"}, kWin_CanCollapse},
    {{VexName("window_can_minimize"), 0, "the same"}, kWin_CanMinimize},
    {{VexName("window_can_target"), 0, "can have the focus within it"}, kWin_CanTarget},
    {{VexName("window_can_bullseye"), 0, "can have the focus itself, too"}, kWin_CanBullseye},
    {{VexName("window_can_tabstop"), 0, "the Tab key leads to it, too"}, kWin_CanTabStop},
    {{VexName("window_open_hidden"), 0, "stays hidden when it starts"}, kWin_OpenHidden},
    {{VexName("window_auto_delete"), 0, "is deleted when it has stopped"}, kWin_AutoDelete},
    {{VexName("window_disable_owner"), 0, "disables the window that it lies above"},
     kWin_DisableOwner},
    {{VexName("window_drop_files"), 0, "takes files that are dropped on it"}, kWin_DropFiles},
    {{VexName("window_resolution_independent"), 0, "follows the scale of its monitor"},
     kWin_ResolutionIndependent},
};

constexpr auto kFeatureKeys = [] {
    std::array<PropertyRow, std::size(kFeatureRows)> rows{};
    std::ranges::transform(kFeatureRows, rows.begin(), &FeatureRow::row);
    return rows;
}();

// The keys of a placement (PlacementKeys).
constexpr PropertyRow kPlaceRows[] = {
    {VexName("window_position_x"), -50,
     "from the monitor's left; below 0 a percentage of the room left free"},
    {VexName("window_position_y"), -33, "the same from the top"},
    {VexName("window_size_x"), 0, "below 0 a percentage of the monitor; 0 what the layout needs"},
    {VexName("window_size_y"), 0, ""},
    {VexName("window_state"), kWinState_Default, "whether it opens minimized or maximized"},
    {VexName("window_monitor"), kMonitor_Main, "the monitor that it opens on"},
    {VexName("window_slop_x"), 0, "left free beside it when it is zoomed"},
    {VexName("window_slop_y"), 0, ""},
    {VexName("window_user_left"), 0, "where it was put by hand last; likewise the other three"},
    {VexName("window_user_top"), 0, ""},
    {VexName("window_user_right"), 0, ""},
    {VexName("window_user_bottom"), 0, ""},
    {VexName("window_last_left"), 0, "where it was before it was maximized; likewise the others"},
    {VexName("window_last_top"), 0, ""},
    {VexName("window_last_right"), 0, ""},
    {VexName("window_last_bottom"), 0, ""},
};

std::uint32_t ReadFeatures(const CPropertyReader& reader)
{
    auto features = static_cast<std::uint32_t>(reader.Integer(kFeatures));
    for (const FeatureRow& row : kFeatureRows) {
        bool flag = false;
        if (reader.TryFlag(row.row.key, flag))
            features = flag ? features | row.bit : features & ~row.bit;
    }
    return features;
}

CWindowPlacement ReadPlacement(const CPropertyReader& reader)
{
    CWindowPlacement placement;
    for (const CPlacementKey& key : PlacementKeys()) {
        std::int32_t number = 0;
        if (reader.TryInteger(VexName(key.name), number))
            key.field(placement) = number;
    }
    return placement;
}

CWindowPlan ReadPlan(const CPropertyReader& reader)
{
    CWindowPlan plan;
    plan.kind = static_cast<EWindowKind>(reader.Integer(kStyle));
    plan.features = ReadFeatures(reader);
    plan.autoOpen = reader.Flag(kAutoOpen);
    plan.size = {}; // until the text has been read
    plan.id = reader.Id(kViewIdKey);
    plan.placement = ReadPlacement(reader);
    return plan;
}

void SetLeastSize(CWindow& window, const Point& size)
{
    CSizeLimits limits = window.GetSizeLimits();
    limits.minimum = {std::max(limits.minimum.x, size.x), std::max(limits.minimum.y, size.y)};
    window.SetSizeLimits(limits);
}

} // namespace

CView* CWindowBuilderBase::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    CView* window = owner.fExistingView;
    if (window == nullptr) {
        CWindowPlan plan = ReadPlan(reader);
        plan.owner = parent;
        owner.fWindow = MakeWindow(plan);
        window = owner.fWindow.get();
    }
    ReadTips(*window, reader);
    return window;
}

CView* CWindowBuilderBase::ConstructView(CView* view, LayoutOwner& owner)
{
    const ViewLayoutRecord& record = owner.fLayoutRecord;
    const Point size{std::max(record.width, 0.0), std::max(record.height, 0.0)};
    auto* const window = dynamic_cast<CWindow*>(view);
    if (window == nullptr) { // an existing view that is none
        view->SetSize(size.x, size.y);
        return view;
    }
    SetLeastSize(*window, size);
    window->SizeWindow(size);
    CText title;
    if (owner.Properties().TryLabel(kTitle.key, title))
        window->SetTitle(title);
    return view;
}

void CWindowBuilderBase::AppendRows(std::vector<PropertyRows>& rows) const
{
    CViewBuilder<CView>::AppendRows(rows);
    for (const PropertyRows own : {PropertyRows(kWindowRows), PropertyRows(kFeatureKeys),
                                   PropertyRows(kPlaceRows), TipRows()})
        rows.push_back(own);
}

} // namespace Kesto
