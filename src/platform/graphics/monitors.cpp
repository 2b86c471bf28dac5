#include "platform/graphics/monitors.h"

#include <algorithm>
#include <cstdint>

namespace Platform {
namespace {

std::int64_t Area(const PixelRect& rect)
{
    return rect.IsEmpty()
               ? 0
               : (std::int64_t{rect.right} - rect.left) * (std::int64_t{rect.bottom} - rect.top);
}

// How far two ranges lie apart; 0 where they meet.
std::int64_t Gap(std::int64_t start, std::int64_t end, std::int64_t otherStart,
                 std::int64_t otherEnd)
{
    return std::max({std::int64_t{0}, otherStart - end, start - otherEnd});
}

// The larger the nearer.
double Nearness(const PixelRect& a, const PixelRect& b)
{
    const auto across = static_cast<double>(Gap(a.left, a.right, b.left, b.right));
    const auto down = static_cast<double>(Gap(a.top, a.bottom, b.top, b.bottom));
    return -(across * across + down * down);
}

} // namespace

std::size_t MonitorOf(std::span<const Monitor> monitors, const PixelRect& rect)
{
    const auto rank = [&](const Monitor& monitor) {
        return std::pair(Area(Intersect(monitor.bounds, rect)), Nearness(monitor.bounds, rect));
    };
    const auto best = std::ranges::max_element(monitors, {}, rank);
    return static_cast<std::size_t>(best - monitors.begin());
}

} // namespace Platform
