#include "foundation/base/geometry.h"

#include <cmath>
#include <limits>

namespace Kesto {
namespace {

// Cut off to a whole number.
std::int32_t Whole(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value))
        return 0;
    return static_cast<std::int32_t>(
        std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

// std::floor would be a call of the runtime, since not every processor has an instruction for it.
// What lies below 32 bits stays at their limit.
std::int32_t Floor(double value)
{
    const std::int32_t whole = Whole(value);
    return whole > value && whole > std::numeric_limits<std::int32_t>::min() ? whole - 1 : whole;
}

} // namespace

double UsableScale(double scale)
{
    return scale > 0.0 ? scale : 1.0;
}

std::int32_t RoundHalfAway(double value)
{
    // Not by std::round: not every runtime is exact next to a half.
    const double whole = std::trunc(value);
    return Whole(std::abs(value - whole) >= 0.5 ? whole + std::copysign(1.0, value) : whole);
}

std::int32_t ToDevice(double unit, double scale)
{
    return Floor(unit * UsableScale(scale) + 0.51);
}

PixelRect ToDevice(const Rect& units, double scale)
{
    return {ToDevice(units.left, scale), ToDevice(units.top, scale), ToDevice(units.right, scale),
            ToDevice(units.bottom, scale)};
}

} // namespace Kesto
