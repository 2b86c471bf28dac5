// How much of each pixel lies within an outline: by exact areas, in steps of 1/256 pixel, so that
// edges on whole pixels cover all or nothing and shapes that share an edge leave no gap.
//
// Each line adds to the cells that it passes how much of their height it spans (cover) and how much
// of that lies to its left (area). Summed up from the left, cover and area give the part of the
// cell that is inside; between two cells that lines pass it is the same all along, so that a row of
// a big shape is a few spans.
#pragma once

#include "platform/graphics/path.h"
#include "platform/system/pixel_rect.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Platform {

enum class FillRule { kNonZero, kEvenOdd };

// Pixels of a row from left to right - 1, all covered as much: 1 to 255, which is in full.
struct CoverageSpan {
    std::int32_t left;
    std::int32_t right;
    std::uint8_t coverage;
};

// One may be used for shape after shape and keeps its memory.
class Rasterizer {
public:
    // Begins a shape of which only the part within `bounds` is wanted.
    void Begin(const PixelRect& bounds);

    // A line of the outline, which is to consist of closed figures.
    void AddLine(PathPoint from, PathPoint to);
    void AddFigure(std::span<const PathPoint> points);

    // Calls row(y, spans) from top to bottom for each row that has any, with the spans from left to
    // right.
    template <class Row>
    void Sweep(FillRule rule, Row&& row)
    {
        SortCells();
        for (std::int32_t y = fBounds.top; y < fBounds.bottom; ++y)
            if (const auto spans = SpansOf(y, rule); !spans.empty())
                row(y, spans);
    }

private:
    struct Cell {
        std::int32_t x;
        std::int32_t y;
        std::int32_t cover;
        std::int32_t area;
    };
    struct FixedPoint { // in 1/256 pixel
        std::int32_t x;
        std::int32_t y;
    };

    void AddWithin(PathPoint from, PathPoint to);
    void AddFixed(FixedPoint from, FixedPoint to);
    void AddInRow(std::int32_t y, FixedPoint from, FixedPoint to);
    void AddInCell(std::int32_t x, std::int32_t y, FixedPoint from, FixedPoint to);
    void SortCells();
    std::span<const CoverageSpan> SpansOf(std::int32_t y, FillRule rule);
    void AddSpan(std::int32_t left, std::int32_t right, std::int64_t inside, FillRule rule);

    PixelRect fBounds;
    std::vector<Cell> fCells;
    std::vector<Cell> fSorted;           // by row, then by x
    std::vector<std::size_t> fRowStarts; // one more than there are rows
    std::vector<CoverageSpan> fSpans;    // of the last row asked for
};

} // namespace Platform
