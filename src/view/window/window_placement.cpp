#include "view/window/window_placement.h"

#include <algorithm>

namespace Kesto {
namespace {

using Platform::PixelRect;

template <double CWindowPlacement::*field>
double& At(CWindowPlacement& placement)
{
    return placement.*field;
}

template <std::array<double, 4> CWindowPlacement::*field, std::size_t index>
double& At(CWindowPlacement& placement)
{
    return (placement.*field)[index];
}

using P = CWindowPlacement;
constexpr CPlacementKey kKeys[] = {
    {"window_position_x", At<&P::positionX>}, {"window_position_y", At<&P::positionY>},
    {"window_size_x", At<&P::sizeX>},         {"window_size_y", At<&P::sizeY>},
    {"window_state", At<&P::state>},          {"window_monitor", At<&P::monitor>},
    {"window_slop_x", At<&P::slopX>},         {"window_slop_y", At<&P::slopY>},
    {"window_user_left", At<&P::user, 0>},    {"window_user_top", At<&P::user, 1>},
    {"window_user_right", At<&P::user, 2>},   {"window_user_bottom", At<&P::user, 3>},
    {"window_last_left", At<&P::last, 0>},    {"window_last_top", At<&P::last, 1>},
    {"window_last_right", At<&P::last, 2>},   {"window_last_bottom", At<&P::last, 3>},
};

std::int32_t SizeOf(double wanted, double natural, double scale, std::int32_t room)
{
    const std::int32_t size = wanted < 0.0 ? RoundHalfAway(room * -wanted / 100.0)
                                           : ToDevice(wanted > 0.0 ? wanted : natural, scale);
    return std::max(size, 1);
}

// Where the frame begins on one axis: at the latest where it still ends within the area, and never
// before the area.
std::int32_t StartOf(double position, double scale, std::int32_t start, std::int32_t room,
                     std::int32_t size)
{
    const std::int32_t free = std::max(room - size, 0);
    const std::int32_t wanted =
        position < 0.0 ? RoundHalfAway(free * -position / 100.0) : ToDevice(position, scale);
    return start + std::clamp(wanted, 0, free);
}

// What a choice prefers most of.
std::int64_t Merit(const PixelRect& bounds, EMonitorChoice choice)
{
    const std::int64_t across = bounds.right - bounds.left;
    const std::int64_t down = bounds.bottom - bounds.top;
    switch (choice) {
    case kMonitor_Big:
        return across * down;
    case kMonitor_Small:
        return -across * down;
    case kMonitor_Tall:
        return down;
    case kMonitor_Short:
        return -down;
    case kMonitor_Wide:
        return across;
    case kMonitor_Thin:
        return -across;
    default:
        return 0;
    }
}

} // namespace

std::size_t ChooseMonitor(std::span<const Platform::Monitor> monitors, EMonitorChoice choice,
                          std::size_t ownersMonitor)
{
    std::size_t best = ownersMonitor;
    for (std::size_t i = 0; i < monitors.size(); ++i)
        if (Merit(monitors[i].bounds, choice) > Merit(monitors[best].bounds, choice))
            best = i;
    return best;
}

std::size_t StartMonitor(const CWindowPlacement& placement,
                         std::span<const Platform::Monitor> monitors, std::size_t ownersMonitor)
{
    const auto& [left, top, right, bottom] = placement.user;
    const PixelRect user{RoundHalfAway(left), RoundHalfAway(top), RoundHalfAway(right),
                         RoundHalfAway(bottom)};
    if (!user.IsEmpty())
        return Platform::MonitorOf(monitors, user);
    return ChooseMonitor(monitors, static_cast<EMonitorChoice>(RoundHalfAway(placement.monitor)),
                         ownersMonitor);
}

std::span<const CPlacementKey> PlacementKeys()
{
    return kKeys;
}

PixelRect PlaceOnMonitor(const CWindowPlacement& placement, const Platform::Monitor& monitor,
                         const Point& naturalSize, double scale, const PixelRect& edges)
{
    const PixelRect& area = monitor.workArea;
    const std::int32_t across = area.right - area.left;
    const std::int32_t down = area.bottom - area.top;
    const std::int32_t width = SizeOf(placement.sizeX, naturalSize.x, scale, across);
    const std::int32_t height = SizeOf(placement.sizeY, naturalSize.y, scale, down);
    const std::int32_t left =
        StartOf(placement.positionX, scale, area.left, across, width + edges.left + edges.right) +
        edges.left;
    const std::int32_t top =
        StartOf(placement.positionY, scale, area.top, down, height + edges.top + edges.bottom) +
        edges.top;
    return {left, top, left + width, top + height};
}

} // namespace Kesto
