// Setting pixels of any pixmap to one value for each plane.
#pragma once

#include "pixels/pixmap.h"

namespace Kesto {

// Sets the part of `rect` (global) that lies in the pixmap. `values` is an array of one value of the pixmap's pixel size
// for each selected plane, in the order of the planes; a plane count below 0 selects all from the first on. Pixels of
// other than 8, 16 or 32 bits stay as they are.
void Fill(CPixmap& pixmap, const Rect& rect, const void* values, std::int32_t firstPlane, std::int32_t planeCount);

} // namespace Kesto
