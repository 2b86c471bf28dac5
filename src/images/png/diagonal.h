// Undoing row filters for several rows at once, along a diagonal.
//
// The bytes of one row depend on each other, so a row alone is recovered byte after byte. But row r
// needs no more of the row above than what lies up to its own column. So each row runs one pixel
// after the row above: lane r of a vector holds row r's pixel of column step - r, and all lanes go
// one pixel to the right in each step. What a lane needs from above is then what the lane before it
// gave in the last step.
//
// Outside its row a lane holds zeros, which every filter leaves at 0; right of the row's end it
// holds what is never stored.
//
// The code is compiled once for each kind of vector, V, which is two halves of 16 unsigned bytes.
// Everything here has internal linkage: the linker could otherwise hand code for one processor to
// another.
#pragma once

#include "images/png/lane_filters.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kesto {
namespace {

constexpr std::ptrdiff_t kHalf = 16; // bytes

// A lane has room for a pixel; that of a 3-byte pixel has a byte more. The first half has the lanes
// of the first kCount rows of a group, the second half those of the others.
template <int kPixelBytes>
struct Lanes {
    static constexpr int kLane = kPixelBytes == 3 ? 4 : kPixelBytes; // bytes
    static constexpr int kCount = kHalf / kLane;                     // of a half
    static constexpr int kRows = 2 * kCount;
    static constexpr std::ptrdiff_t kRun = kCount * kPixelBytes; // bytes of kCount pixels in a row
};

// The bytes of a row; none for a row that doesn't exist.
struct Row {
    std::uint8_t* bytes = nullptr;
    std::ptrdiff_t count = 0;
};

// Half a vector of a row's bytes from `at` on; zeros outside the row. kInside promises that the
// half lies in the row.
template <int kPixelBytes, bool kInside>
inline __m128i LoadRun(const Row& row, std::ptrdiff_t at)
{
    if (kInside || (at >= 0 && at + kHalf <= row.count))
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(row.bytes + at));
    alignas(kHalf) std::uint8_t bytes[kHalf] = {};
    const std::ptrdiff_t from = std::max<std::ptrdiff_t>(at, 0);
    const std::ptrdiff_t to = std::min(at + Lanes<kPixelBytes>::kRun, row.count);
    if (from < to)
        std::memcpy(bytes + (from - at), row.bytes + from, static_cast<std::size_t>(to - from));
    return _mm_load_si128(reinterpret_cast<const __m128i*>(bytes));
}

// Stores what of a run of kCount pixels lies in the row.
template <int kPixelBytes, bool kInside>
inline void StoreRun(const Row& row, std::ptrdiff_t at, __m128i run)
{
    constexpr std::ptrdiff_t kRun = Lanes<kPixelBytes>::kRun;
    if (kInside || (at >= 0 && at + kRun <= row.count)) {
        std::memcpy(row.bytes + at, &run, kRun);
        return;
    }
    alignas(kHalf) std::uint8_t bytes[kHalf];
    _mm_store_si128(reinterpret_cast<__m128i*>(bytes), run);
    const std::ptrdiff_t from = std::max<std::ptrdiff_t>(at, 0);
    const std::ptrdiff_t to = std::min(at + kRun, row.count);
    if (from < to)
        std::memcpy(row.bytes + from, bytes + (from - at), static_cast<std::size_t>(to - from));
}

// Vector i of a square holds kCount pixels of row i in each half, or else the pixels of all rows in
// step i. This turns one into the other: each shuffle of the first vectors with the last moves one
// bit of the place.
template <int kPixelBytes, class V>
inline void Transpose(V (&square)[Lanes<kPixelBytes>::kCount])
{
    constexpr int kCount = Lanes<kPixelBytes>::kCount;
    constexpr int kLane = Lanes<kPixelBytes>::kLane;
    for (int stage = 1; stage < kCount; stage *= 2) {
        V old[kCount];
        std::copy_n(square, kCount, old);
        for (int i = 0; i < kCount / 2; ++i) {
            square[2 * i] = V::template UnpackLow<kLane>(old[i], old[i + kCount / 2]);
            square[2 * i + 1] = V::template UnpackHigh<kLane>(old[i], old[i + kCount / 2]);
        }
    }
}

inline bool IsStoredAsItIs(const Row& row)
{
    return row.bytes[-1] == 0 || row.bytes[-1] > 4;
}

// Rows to recover together.
template <int kPixelBytes, class V>
struct Group {
    Row above;
    Row rows[Lanes<kPixelBytes>::kRows]; // those after the last don't exist
    int count = 0;
    LaneFilters<V> filters;
    bool needsLeft = false;
    bool hasMeans = false;
    bool hasOthers = false;

    void Add(Row row)
    {
        const std::uint8_t filter = row.bytes[-1];
        filters.SetLane(count, Lanes<kPixelBytes>::kLane, filter);
        needsLeft = needsLeft || filter == 1 || filter == 3 || filter == 4;
        hasMeans = hasMeans || filter == 3;
        hasOthers = hasOthers || filter != 3;
        rows[count++] = row;
    }
};

// What a step hands on to the next one. Where all filters are Average, `left` and what lies above
// are kept as their complements: the mean of complements, rounded up, less the stored difference is
// the complement of the byte. That is all there is between one step and the next.
template <class V>
struct Neighbours {
    V left = V::Zero();
    V corner = V::Zero();
};

template <Kinds kKinds, class V>
inline V Complement(V value)
{
    return kKinds == Kinds::kMeans ? value ^ V::Full() : value;
}

// Takes a step whose pixels are differences and whose neighbours above are `up`; returns its bytes.
template <Kinds kKinds, class V>
inline V TakeStep(V differences, const LaneFilters<V>& filters, V up, Neighbours<V>& near)
{
    if constexpr (kKinds == Kinds::kMeans)
        near.left = Subtract(CeilMean(near.left, up), differences);
    else
        near.left = Add(differences, filters.template Predict<kKinds>(near.left, up, near.corner));
    near.corner = up;
    return Complement<kKinds>(near.left);
}

// The next kCount steps. kInside promises that all rows exist and that the steps lie inside all of
// them.
template <int kPixelBytes, Kinds kKinds, bool kInside, class V>
inline void TakeSteps(const Group<kPixelBytes, V>& group, std::ptrdiff_t step, Neighbours<V>& near)
{
    using L = Lanes<kPixelBytes>;
    V square[L::kCount];
    for (int r = 0; r < L::kCount; ++r) {
        square[r] = V::Of(LoadRun<kPixelBytes, kInside>(group.rows[r], (step - r) * kPixelBytes),
                          LoadRun<kPixelBytes, kInside>(group.rows[L::kCount + r],
                                                        (step - L::kCount - r) * kPixelBytes));
        if constexpr (kPixelBytes == 3)
            square[r] = square[r].Spread();
    }
    Transpose<kPixelBytes>(square);
    __m128i above = LoadRun<kPixelBytes, false>(group.above, step * kPixelBytes);
    above = Complement<kKinds>(V::Of(above, above)).First();
    for (int i = 0; i < L::kCount; ++i) {
        const V up = V::template ShiftUp<L::kLane>(near.left) |
                     V::template Entering<L::kLane>(near.left, above);
        above = _mm_srli_si128(above, kPixelBytes);
        square[i] = TakeStep<kKinds>(square[i], group.filters, up, near);
    }
    Transpose<kPixelBytes>(square);
    for (int r = 0; r < L::kCount; ++r) {
        if constexpr (kPixelBytes == 3)
            square[r] = square[r].Packed();
        StoreRun<kPixelBytes, kInside>(group.rows[r], (step - r) * kPixelBytes, square[r].First());
        StoreRun<kPixelBytes, kInside>(group.rows[L::kCount + r],
                                       (step - L::kCount - r) * kPixelBytes, square[r].Second());
    }
}

template <int kPixelBytes, Kinds kKinds, class V>
void UnfilterDiagonally(const Group<kPixelBytes, V>& group)
{
    using L = Lanes<kPixelBytes>;
    const std::ptrdiff_t bytes = group.rows[0].count;
    const std::ptrdiff_t steps = (bytes + kPixelBytes - 1) / kPixelBytes + group.count - 1;
    Neighbours<V> near{Complement<kKinds>(V::Zero())};
    for (std::ptrdiff_t step = 0; step < steps; step += L::kCount)
        if (group.count == L::kRows && step >= L::kRows && step * kPixelBytes + kHalf <= bytes)
            TakeSteps<kPixelBytes, kKinds, true>(group, step, near);
        else
            TakeSteps<kPixelBytes, kKinds, false>(group, step, near);
}

// A row by itself, of a filter that needs no pixel to the left.
inline void UnfilterUp(Row row, Row above)
{
    if (row.bytes[-1] == 2)
        for (std::ptrdiff_t i = 0; i < above.count; ++i)
            row.bytes[i] = static_cast<std::uint8_t>(row.bytes[i] + above.bytes[i]);
}

// As many rows together as a vector has lanes. Rows whose filters look only upward are quicker one
// by one, and those that are stored as they are begin no group.
template <int kPixelBytes, class V>
void UnfilterGroups(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows)
{
    Row above;
    for (std::int32_t y = 0; y < rows;) {
        Group<kPixelBytes, V> group;
        group.above = above;
        const auto row = [&](std::int32_t r) -> Row {
            return {data + std::ptrdiff_t{r} * rowBytes + 1, rowBytes - 1};
        };
        if (IsStoredAsItIs(row(y))) {
            above = row(y++);
            continue;
        }
        while (y < rows && group.count < Lanes<kPixelBytes>::kRows)
            group.Add(row(y++));
        if (group.hasMeans && group.hasOthers)
            UnfilterDiagonally<kPixelBytes, Kinds::kMixed>(group);
        else if (group.hasMeans)
            UnfilterDiagonally<kPixelBytes, Kinds::kMeans>(group);
        else if (group.needsLeft)
            UnfilterDiagonally<kPixelBytes, Kinds::kNearest>(group);
        else
            for (int r = 0; r < group.count; ++r)
                UnfilterUp(group.rows[r], r == 0 ? above : group.rows[r - 1]);
        above = group.rows[group.count - 1];
    }
}

// Pixels of 1 to 4 bytes.
template <class V>
void UnfilterPixels(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                    std::int32_t pixelBytes)
{
    switch (pixelBytes) {
    case 1:
        return UnfilterGroups<1, V>(data, rowBytes, rows);
    case 2:
        return UnfilterGroups<2, V>(data, rowBytes, rows);
    case 3:
        return UnfilterGroups<3, V>(data, rowBytes, rows);
    default:
        return UnfilterGroups<4, V>(data, rowBytes, rows);
    }
}

} // namespace
} // namespace Kesto
