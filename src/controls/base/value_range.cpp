#include "controls/base/value_range.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kStepsWithoutPositions = 100.0;

} // namespace

double SValueRange::Pinned(double value) const
{
    return std::isnan(value) ? value : std::clamp(value, Low(), High());
}

double SValueRange::Snapped(double value) const
{
    if (positions < 2 || std::isnan(value))
        return Pinned(value);
    return ValueAt(ShareOf(value));
}

// In halves, since the whole way may be longer than a double can be.
double SValueRange::ShareOf(double value) const
{
    const double way = last / 2 - first / 2;
    if (way == 0.0 || std::isnan(value))
        return 0.0;
    return std::clamp((Pinned(value) / 2 - first / 2) / way, 0.0, 1.0);
}

double SValueRange::ValueAt(double share) const
{
    share = std::isnan(share) ? 0.0 : std::clamp(share, 0.0, 1.0);
    if (positions >= 2)
        share = std::round(share * (positions - 1)) / (positions - 1);
    return Pinned(first * (1.0 - share) + last * share);
}

double SValueRange::Stepped(double value, double delta) const
{
    const double reached = Snapped(value + delta);
    const double from = Snapped(value);
    if (reached != from || delta == 0.0 || std::isnan(delta))
        return reached;
    return Snapped(from + std::copysign(NaturalStep(), delta));
}

double SValueRange::NaturalStep() const
{
    const double steps = positions >= 2 ? positions - 1.0 : kStepsWithoutPositions;
    return High() / steps - Low() / steps;
}

} // namespace Kesto
