// The window of the box kernels.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Kesto::Kernels {

// Pixel (x, y) of the target sees columns x to x + width - 1 and rows y to y + height - 1 of the
// source. With a lean above 0 the first row's window starts height - 1 columns further right and
// each row below it one further left; with a lean below 0 each row starts one further right than
// the row above it. Sizes are at least 1.
struct BoxShape {
    std::int32_t fWidth = 1;
    std::int32_t fHeight = 1;
    std::int32_t fLean = 0;

    std::int32_t Area() const { return fWidth * fHeight; }

    // Where the window of row `row` starts, from the target's column.
    std::int32_t RowStart(std::int32_t row) const
    {
        return fLean == 0 ? 0 : fLean > 0 ? fHeight - 1 - row : row;
    }

    // How much larger than the target the source has to be.
    std::int32_t ExtraColumns() const { return fWidth - 1 + (fLean == 0 ? 0 : fHeight - 1); }
    std::int32_t ExtraRows() const { return fHeight - 1; }

    // A scratch row for so many columns: whole lines of the processor's cache, and room for loops
    // that run on to a whole vector.
    static constexpr std::size_t ScratchRow(std::size_t columns)
    {
        return (columns + 127) / 64 * 64;
    }

    // What a kernel of this shape needs for a source of `columns` columns.
    std::size_t ScratchBytes(std::int32_t columns) const
    {
        return ScratchRow(static_cast<std::size_t>(columns)) *
               (2 * static_cast<std::size_t>(fHeight) + 8);
    }
};

} // namespace Kesto::Kernels
