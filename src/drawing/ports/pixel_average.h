// CPixelAverage, pixels for a picture that becomes smaller: each is the mean of what it covers, the
// pixels at its edges counting by as much of them as lies within.
//
// Pixels are premultiplied, so that what is transparent lends its colour to nobody. A direction in
// which the picture becomes larger runs evenly from the first pixel to the last. The same pixels
// come out on every system, and for a part the same as for the whole.
#pragma once

#include "drawing/ports/pixel_surface.h"

#include <cstdint>
#include <vector>

namespace Kesto {

// How a pixel is made in one direction: the first source pixel and the last one by their weights,
// and those between them, together times the scale.
struct CPixelShare {
    std::int32_t first = 0;
    std::int32_t last = 0;
    float firstWeight = 1;
    float lastWeight = 0; // 0 where the first one is the last
    float scale = 1;
};

// One direction: of `dest` pixels that are made from `source` pixels, those from `first` up to
// `end` are wanted.
struct CAverageAxis {
    std::int32_t source = 1;
    std::int32_t dest = 1;
    std::int32_t first = 0;
    std::int32_t end = 1;

    CPixelShare ShareOf(std::int32_t at) const;

    // The source pixels that make the wanted ones.
    std::int32_t FirstUsed() const { return ShareOf(first).first; }
    std::int32_t EndUsed() const { return ShareOf(end - 1).last + 1; }
};

// Where the pixels come from.
class CPixelRows {
public:
    virtual ~CPixelRows() = default;

    // The pixels of source row y that are used, valid until the next call. Rows come from top to
    // bottom, some of them twice.
    virtual const std::uint32_t* Row(std::int32_t y) = 0;
};

// Keeps its memory between uses.
class CPixelAverage {
public:
    // Writes the wanted pixels to `out`, the first to its top left. Throws std::bad_alloc.
    void Run(CPixelRows& rows, const CAverageAxis& across, const CAverageAxis& down,
             const CPixelSurface& out);

private:
    void SumRows(CPixelRows& rows, const CPixelShare& share);
    void TakeRow(float scale, std::uint32_t* out) const;

    std::vector<CPixelShare> fColumns; // counted from the first used pixel
    std::vector<std::uint32_t> fInner; // by channel: the sums of the rows between; 0 between uses
    std::vector<float> fSums;          // by channel: of all rows
};

} // namespace Kesto
