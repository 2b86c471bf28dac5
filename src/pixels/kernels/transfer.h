// Kernels that move pixels or set them. Sizes of 8, 16 and 32 bits; views of any other size are
// left alone.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// out = source, plane by plane. The views may overlap, as long as their row distance is the same.
void Copy(const CPixView& out, const CPixView& source);

// Sets every pixel of plane i to values[i]; planes without a value stay as they are. T has the
// view's pixel size.
template <class T>
void Fill(const CPixView& view, std::span<const T> values);

// Sets the pixels of the view that lie outside `inner`, a rectangle in global coordinates: the
// strips above, left, right and below.
template <class T>
void FillFrame(const CPixView& view, const PixelRect& inner, std::span<const T> values);

// The bitwise complement of every pixel, to `out`, which may be the source.
void Invert(const CPixView& out, const CPixView& source);

// Swaps the pixels of two views that do not overlap.
void Exchange(const CPixView& a, const CPixView& b);

// Reverses the four bytes of each 32-bit pixel; `out` may be the source.
void SwapBytes(const CPixView& out, const CPixView& source);

} // namespace Kesto::Kernels
