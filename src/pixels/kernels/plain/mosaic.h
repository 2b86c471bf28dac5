// The plain loop of the mosaic.
#pragma once

#include "pixels/kernels/plane.h"

#include <algorithm>
#include <cstdint>

namespace Kesto::Kernels::Plain {

// One row of cells: each row of `source` is a row of pixels of every cell, `cellWidth` of them or
// what is left at the end.
inline void MosaicBand(Plane<const std::uint8_t> source, Plane<std::uint8_t> out,
                       std::int32_t cellWidth, bool round, std::uint32_t*)
{
    for (std::int32_t x = 0; x < out.fWidth;) {
        const std::int32_t width = std::min(cellWidth, out.fWidth - x);
        const std::uint64_t count =
            static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(out.fHeight);
        std::uint64_t sum = round ? count / 2 : 0;
        for (std::int32_t y = 0; y < out.fHeight; ++y)
            for (std::int32_t i = 0; i < width; ++i)
                sum += source.Row(y)[x + i];
        for (std::int32_t y = 0; y < out.fHeight; ++y)
            std::fill_n(out.Row(y) + x, width, static_cast<std::uint8_t>(sum / count));
        x += width;
    }
}

} // namespace Kesto::Kernels::Plain
