// CRoundedFrame, a frame of device pixels with quarter ellipses for corners; an oval when they
// meet.
#pragma once

#include "drawing/regions/region.h"
#include "platform/graphics/path.h"

#include <cstdint>

namespace Kesto {

struct CRoundedFrame {
    PixelRect frame;
    double radiusX = 0.0; // pixels, at most half of the width
    double radiusY = 0.0;

    // With so many pixels less on all sides; possibly nothing.
    CRoundedFrame Inset(std::int32_t pixels) const;

    // The rows between the corners.
    PixelRect FullRows() const;

    void AddTo(Platform::Path& path) const;

    // The pixels of a rectangle whose middle lies within the shape, for what cannot cover a pixel
    // in part.
    CDeviceRegion WholePixels(const PixelRect& within) const;
};

} // namespace Kesto
