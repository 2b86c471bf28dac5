// Kernels between colour models and plane layouts.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <array>

namespace Kesto::Kernels {

// Three planes of hue, saturation and value to red, green and blue; all of 8, 16 or 32 bits. Hue
// runs through six sectors of 43 levels, the others to 255; a hue of 258 or more gives black. `out`
// may be the source.
void HueToRGB(const CPixView& out, const CPixView& hsv);

// For each byte of a 32-bit pixel, lowest first, the plane that belongs to it, or -1 for none.
using PlaneOrder = std::array<std::int32_t, 4>;

inline constexpr PlaneOrder kOrder_BGRA = {2, 1, 0, 3};
inline constexpr PlaneOrder kOrder_BGRConstant = {2, 1, 0, -1};
inline constexpr PlaneOrder kOrder_GreyAlpha = {0, 0, 0, 1};
inline constexpr PlaneOrder kOrder_GreyConstant = {0, 0, 0, -1};

// Packs 8-bit planes into the one 32-bit plane of `out`, which does not overlap them. A byte
// without a plane, or whose plane the source lacks, is the constant.
void MergePlanes(const CPixView& out, const CPixView& source, const PlaneOrder& order,
                 std::uint8_t constant = 0);

// The same with the three lower bytes weighted by the highest, which is the alpha: T[alpha][v] with
// the blend table's T. This is what source-over blending of the platform wants.
void MergePremultiplied(const CPixView& out, const CPixView& source, const PlaneOrder& order,
                        std::uint8_t constant = 255);

// The way back: puts each byte of the one 32-bit plane of `source` into its 8-bit plane of `out`,
// which does not overlap it. A byte without a plane, or whose plane `out` lacks, is left out;
// planes that no byte belongs to stay as they are. Where several bytes belong to a plane the
// highest counts.
void SplitPlanes(const CPixView& out, const CPixView& source, const PlaneOrder& order);

} // namespace Kesto::Kernels
