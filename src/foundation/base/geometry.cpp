#include "foundation/base/geometry.h"

#include <cmath>
#include <limits>

namespace Kesto {
namespace {

std::int32_t Whole(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int32_t>(
        std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

} // namespace

double UsableScale(double scale)
{
    return scale > 0.0 ? scale : 1.0;
}

std::int32_t RoundHalfAway(double value)
{
    return Whole(std::round(value));
}

std::int32_t ToDevice(double unit, double scale)
{
    return Whole(std::floor(unit * UsableScale(scale) + 0.51));
}

PixelRect ToDevice(const Rect& units, double scale)
{
    return {ToDevice(units.left, scale), ToDevice(units.top, scale), ToDevice(units.right, scale),
            ToDevice(units.bottom, scale)};
}

} // namespace Kesto
