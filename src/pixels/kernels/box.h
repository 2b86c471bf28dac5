// Kernels over a box of pixels. The source is larger than the target by the box's extra columns and
// rows; where it is not, fewer pixels of the target are written. Views do not overlap. Scratch that
// cannot be had throws std::bad_alloc.
#pragma once

#include "pixels/kernels/box_shape.h"
#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// The mean of the box, truncated, or rounded half up with `round`. 8 and 32 bits.
void BoxMean(const CPixView& out, const CPixView& source, const BoxShape& shape, bool round);

// The largest pixel of the box, the smallest, and their difference. 8, 16 and 32 bits; the box does
// not lean.
void Dilate(const CPixView& out, const CPixView& source, const BoxShape& shape);
void Erode(const CPixView& out, const CPixView& source, const BoxShape& shape);
void BoxRange(const CPixView& out, const CPixView& source, const BoxShape& shape);

// The lowest value with `rank` pixels of the box at or below it. 32-bit pixels, each the number of
// a bin of `counts`, the histogram to work in; a value beyond it counts as the last bin. The box
// does not lean.
void Rank(const CPixView& out, const CPixView& source, const BoxShape& shape, std::int32_t rank,
          std::span<std::int32_t> counts);

} // namespace Kesto::Kernels
