#include "dialogs/preview/preview_scale.h"

#include "dialogs/plugin_dialog/dialog_ids.h"
#include "foundation/base/geometry.h"

#include <algorithm>
#include <cmath>

namespace Project {
namespace {

constexpr double kSame = 1e-6; // scales closer than that are one

} // namespace

double RoundScale(double scale)
{
    if (std::isnan(scale))
        return 1.0;
    scale = std::clamp(scale, kLeastPreviewScale, kMostPreviewScale);
    const auto whole = [](double factor) {
        return static_cast<double>(Kesto::RoundHalfAway(factor));
    };
    return scale >= 1.0 ? whole(scale) : 1.0 / whole(1.0 / scale);
}

PreviewFactors FactorsOf(double scale)
{
    const auto whole = [](double factor) {
        return static_cast<int32_t>(Kesto::RoundHalfAway(factor));
    };
    if (scale >= 1.0)
        return {1, whole(scale)};
    return {whole(1.0 / scale), 1};
}

double NextScale(double scale)
{
    const auto* const next =
        std::ranges::find_if(kZoomScales, [=](double step) { return step > scale + kSame; });
    return next != kZoomScales.end() ? *next : scale;
}

double PreviousScale(double scale)
{
    double previous = scale;
    for (const double step : kZoomScales)
        if (step < scale - kSame)
            previous = step;
    return previous;
}

} // namespace Project
