// CCornerMasks, how much of each pixel of a rounded corner is covered: rasterised once for each
// pair of radii and kept, since an interface has few.
#pragma once

#include "foundation/base/service.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace Kesto {

// The top left corner; the others are its mirror images.
struct CCornerMask {
    std::int32_t width = 0; // pixels, up to the straight sides
    std::int32_t height = 0;
    std::vector<std::uint8_t> coverage; // by rows

    // 0 outside the frame, 255 beyond the corner.
    std::uint8_t At(std::int32_t x, std::int32_t y) const
    {
        if (x < 0 || y < 0)
            return 0;
        if (x >= width || y >= height)
            return 255;
        return coverage[static_cast<std::size_t>(y * width + x)];
    }
};

class CCornerMasks {
public:
    // Larger corners are worth no mask.
    static constexpr double kMostRadius = 64.0;

    // The process's masks, made at the first call.
    static CCornerMasks& Get() { return *CServiceT<CCornerMasks>::Get(true); }

    // For radii of 0 to kMostRadius pixels; stays valid until the next call. Throws std::bad_alloc.
    const CCornerMask& Find(double radiusX, double radiusY);

private:
    std::map<std::pair<double, double>, CCornerMask> fMasks;
};

} // namespace Kesto
