// The plain loop of the rank filter: a histogram that runs along the row.
#pragma once

#include "pixels/kernels/box_shape.h"
#include "pixels/kernels/plane.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace Kesto::Kernels::Plain {

// A pixel's value is its bin; one beyond the histogram counts in the last bin.
struct RankHistogram {
    std::span<std::int32_t> fCounts;
    std::int64_t fBelow = 0; // samples at or below the bin
    std::size_t fBin = 0;

    std::size_t BinOf(std::uint32_t value) const
    {
        return std::min<std::size_t>(value, fCounts.size() - 1);
    }

    void Change(std::uint32_t value, std::int32_t by)
    {
        const std::size_t bin = BinOf(value);
        fCounts[bin] += by;
        if (bin <= fBin)
            fBelow += by;
    }

    // The lowest bin with `rank` samples at or below it; the ends of the histogram bound it.
    std::uint32_t Seek(std::int32_t rank)
    {
        while (fBelow < rank && fBin + 1 < fCounts.size())
            fBelow += fCounts[++fBin];
        while (fBin > 0 && fBelow - fCounts[fBin] >= rank)
            fBelow -= fCounts[fBin--];
        return static_cast<std::uint32_t>(fBin);
    }
};

inline void Rank(Plane<const std::uint32_t> source, Plane<std::uint32_t> out, BoxShape shape,
                 std::int32_t rank, std::span<std::int32_t> counts, std::byte*)
{
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        std::fill(counts.begin(), counts.end(), 0);
        RankHistogram histogram{counts};
        // The box moves along the row: a column leaves its histogram and another comes.
        const auto changeColumn = [&](std::int32_t x, std::int32_t by) {
            for (std::int32_t row = 0; row < shape.fHeight; ++row)
                histogram.Change(source.Row(y + row)[x], by);
        };
        for (std::int32_t x = 0; x < shape.fWidth; ++x)
            changeColumn(x, 1);
        std::uint32_t* target = out.Row(y);
        for (std::int32_t x = 0; x < out.fWidth; ++x) {
            if (x > 0) {
                changeColumn(x - 1, -1);
                changeColumn(x + shape.fWidth - 1, 1);
            }
            target[x] = histogram.Seek(rank);
        }
    }
}

} // namespace Kesto::Kernels::Plain
