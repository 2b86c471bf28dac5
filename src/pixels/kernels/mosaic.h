// The mosaic kernel, on 8-bit views.
#pragma once

#include "pixels/pixmaps/pixview.h"

namespace Kesto::Kernels {

// Writes the mean of each cell of the source to the whole cell of `out`, which may be the source.
// Cells start at the view's corner; those at its right and bottom may be smaller. The mean is
// truncated, or rounded half up with `round`.
void Mosaic(const CPixView& out, const CPixView& source, PixelPoint cell, bool round);

} // namespace Kesto::Kernels
