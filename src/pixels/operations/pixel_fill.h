// Setting, inverting, copying and exchanging pixels of any pixmaps, contiguous or paged.
//
// Rectangles are global and cut to the pixmaps' bounds; a plane count below 0 means all planes from
// the first on. Pixels of 8, 16 and 32 bits are served; pixmaps with any other size, or with two
// different ones, stay as they are.
#pragma once

#include "pixels/pixmaps/pixmap.h"

namespace Kesto {

// `values` is an array of one value of the pixmap's pixel size for each selected plane, in the
// order of the planes.
void Fill(CPixmap& pixmap, const PixelRect& rect, const void* values, std::int32_t firstPlane,
          std::int32_t planeCount);

// The bitwise complement.
void Invert(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
            std::int32_t planeCount);

// The smaller of the two rectangles' sizes counts. Within one contiguous pixmap the rectangles may
// overlap.
void Copy(CPixmap& dest, CPixmap& source, const PixelRect& destRect, const PixelRect& sourceRect,
          std::int32_t firstPlane, std::int32_t planeCount);

// Swaps the pixels of two rectangles that do not overlap.
void Exchange(CPixmap& a, CPixmap& b, const PixelRect& rectA, const PixelRect& rectB,
              std::int32_t firstPlane, std::int32_t planeCount);

} // namespace Kesto
