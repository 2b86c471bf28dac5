// Random kernels on 8-bit views. Their generator is the linear congruential seed * 1103515245 +
// 12345, of which one sample is bits 16 to 30. Pixels are visited plane by plane, from the top,
// from the left.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// The seed of the variants that are given none.
std::uint32_t& SharedSeed();

// out = source + noise, held to 0 to 255; `out` may be the source. The noise of a pixel is the sum
// of twelve samples less its mean, times `amount` through 32767, truncated. `seed` moves on by
// twelve samples for each pixel.
void AddNoise(const CPixView& out, const CPixView& source, std::int32_t amount,
              std::uint32_t& seed = SharedSeed());

// Of three planes: a pixel takes `colour` when its sample is below `threshold`, 0 to 32768, and the
// source's pixel otherwise. `seed` moves on by one sample for each pixel.
void RandomColour(const CPixView& out, const CPixView& source,
                  std::span<const std::uint8_t, 3> colour, std::int32_t threshold,
                  std::uint32_t& seed = SharedSeed());

} // namespace Kesto::Kernels
