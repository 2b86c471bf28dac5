#include "drawing/ports/corner_masks.h"

#include "drawing/ports/drawing_state.h"
#include "drawing/ports/pixel_surface.h"
#include "platform/graphics/canvas.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

constexpr std::size_t kMostMasks = 256;

// White on black: a channel of the result is the coverage.
CCornerMask Rasterised(double radiusX, double radiusY)
{
    CCornerMask mask{static_cast<std::int32_t>(std::ceil(radiusX)),
                     static_cast<std::int32_t>(std::ceil(radiusY)),
                     {}};
    const double right = std::ceil(2 * radiusX);
    const double bottom = std::ceil(2 * radiusY);
    Platform::Bitmap bitmap;
    if (mask.width < 1 || mask.height < 1 || !bitmap.Make(mask.width, mask.height, 32, false))
        return {};
    const CPixelSurface surface = SurfaceOf(bitmap);
    FillPixels(surface, surface.Bounds(), SolidPixels(kBlack));
    Platform::Path path;
    path.AddRoundedRectangle({0, 0, right, bottom}, radiusX, radiusY);
    Platform::Canvas(bitmap).Fill(path, kWhite);
    for (std::int32_t y = 0; y < mask.height; ++y)
        for (std::int32_t x = 0; x < mask.width; ++x)
            mask.coverage.push_back(static_cast<std::uint8_t>(*surface.At(x, y)));
    return mask;
}

} // namespace

const CCornerMask& CCornerMasks::Find(double radiusX, double radiusY)
{
    const std::pair key(radiusX, radiusY);
    const auto found = fMasks.find(key);
    if (found != fMasks.end())
        return found->second;
    if (fMasks.size() >= kMostMasks)
        fMasks.clear();
    return fMasks.emplace(key, Rasterised(radiusX, radiusY)).first->second;
}

} // namespace Kesto
