#include "dialogs/plugin_dialog/stored_placement.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>

namespace Project {
namespace {

using Kesto::CWindowPlacement;
using Kesto::WindowState;

constexpr double kFarthest = 1e6; // units

// Both name their numbers by the keys of layouts, in orders of their own.
double& FieldOf(CWindowPlacement& placement, std::string_view key)
{
    const auto keys = Kesto::PlacementKeys();
    return std::ranges::find(keys, key, &Kesto::CPlacementKey::name)->field(placement);
}

template <class Integer>
Integer Whole(double number)
{
    return static_cast<Integer>(std::clamp(number, double{std::numeric_limits<Integer>::min()},
                                           double{std::numeric_limits<Integer>::max()}));
}

} // namespace

CWindowPlacement PlacementOf(const WindowState& state)
{
    CWindowPlacement placement;
    bool isSound = true;
    VisitWindowStateFields(state, [&](const auto& value, std::string_view key) {
        const auto number = static_cast<double>(value);
        isSound = isSound && std::isfinite(number) && std::abs(number) <= kFarthest;
        FieldOf(placement, key) = number;
    });
    return isSound ? placement : CWindowPlacement{};
}

WindowState WindowStateOf(const CWindowPlacement& placement)
{
    CWindowPlacement numbers = placement;
    WindowState state;
    VisitWindowStateFields(state, [&]<class Field>(Field& value, std::string_view key) {
        if constexpr (std::is_integral_v<Field>)
            value = Whole<Field>(FieldOf(numbers, key));
        else
            value = FieldOf(numbers, key);
    });
    return state;
}

} // namespace Project
