// Kernels that look at a pixel's neighbours, on 8-bit views. The source is one pixel larger than
// the target on every side: its pixel (x + 1, y + 1) belongs to the target's (x, y). Outputs do not
// overlap the source.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// The light falls from one of eight directions, clockwise from 0, the top. out = base + the table's
// values of the three neighbours on the light's side - those of the three on the other side, held
// to 0 to 255. Directions count modulo 8.
void Emboss(const CPixView& out, const CPixView& source, std::span<const std::int32_t, 256> table,
            std::int32_t direction, std::int32_t base);

// The same with a base for each pixel, from views of the target's size; `base` may be `out`.
void Emboss(const CPixView& out, const CPixView& source, std::span<const std::int32_t, 256> table,
            std::int32_t direction, const CPixView& base);

// The differences that sharpening can find: -1020 to 1020.
inline constexpr std::size_t kSharpenLevels = 2041;

// out = centre + table[1020 + edge], held to 0 to 255, where edge is four times the centre less its
// four neighbours.
void Sharpen(const CPixView& out, const CPixView& source,
             std::span<const std::int32_t, kSharpenLevels> table);

// out = (weight * centre + the four neighbours) / (weight + 4). A weight of -4 leaves `out` as it
// is.
void NeighbourMean(const CPixView& out, const CPixView& source, std::int32_t weight);

} // namespace Kesto::Kernels
