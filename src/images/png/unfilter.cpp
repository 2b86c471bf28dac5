// Several rows at once, along a diagonal.
//
// The bytes of one row depend on each other, so a row alone is recovered byte after byte. But row r needs no more of the
// row above than what lies up to its own column. So each row runs one pixel behind the row above: lane r of a vector
// holds row r's pixel of column step - r, and all lanes go one pixel to the right in each step. What a lane needs from
// above is then what the lane before it gave in the last step.
//
// Outside its row a lane holds zeros, which every filter leaves at 0; right of the row's end it holds what is never stored.
#include "images/png/unfilter.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace Kesto {

namespace {

constexpr std::ptrdiff_t kVector = 16; // bytes

// One lane for each of kCount rows, with room for a pixel; that of a 3-byte pixel has a byte more.
template <int kPixelBytes>
struct Lanes {
    static constexpr int kLane = kPixelBytes == 3 ? 4 : kPixelBytes; // bytes
    static constexpr int kCount = kVector / kLane;
    static constexpr std::ptrdiff_t kRun = kCount * kPixelBytes; // bytes of kCount pixels in a row

    // Vector i holds kCount pixels of row i, or else the pixels of kCount rows in step i.
    struct Square {
        __m128i at[kCount];
    };
};

// The bytes of a row; none for a row that doesn't exist.
struct Row {
    std::uint8_t* bytes = nullptr;
    std::ptrdiff_t count = 0;
};

// 12 bytes as four lanes of 3 bytes and a zero, and the way back.
inline __m128i SpreadTriples(__m128i packed)
{
    const auto lane = [](int i) {
        return _mm_setr_epi32(i == 0 ? 0xFFFFFF : 0, i == 1 ? 0xFFFFFF : 0, i == 2 ? 0xFFFFFF : 0,
                              i == 3 ? 0xFFFFFF : 0);
    };
    return _mm_or_si128(_mm_or_si128(_mm_and_si128(packed, lane(0)), _mm_and_si128(_mm_slli_si128(packed, 1), lane(1))),
                        _mm_or_si128(_mm_and_si128(_mm_slli_si128(packed, 2), lane(2)),
                                     _mm_and_si128(_mm_slli_si128(packed, 3), lane(3))));
}

inline __m128i PackTriples(__m128i lanes)
{
    const auto low = [](int i) {
        return _mm_setr_epi32(i == 0 ? 0xFFFFFF : 0, i == 1 ? 0xFFFFFF : 0, i == 2 ? 0xFFFFFF : 0,
                              i == 3 ? 0xFFFFFF : 0);
    };
    return _mm_or_si128(
        _mm_or_si128(_mm_and_si128(lanes, low(0)), _mm_srli_si128(_mm_and_si128(lanes, low(1)), 1)),
        _mm_or_si128(_mm_srli_si128(_mm_and_si128(lanes, low(2)), 2), _mm_srli_si128(_mm_and_si128(lanes, low(3)), 3)));
}

// A run of pixels that begins at byte `at` of a row; zeros outside the row.
template <int kPixelBytes>
inline __m128i LoadRun(Row row, std::ptrdiff_t at)
{
    __m128i run = _mm_setzero_si128();
    if (at >= 0 && at + kVector <= row.count)
        run = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row.bytes + at));
    else {
        const std::ptrdiff_t from = std::max<std::ptrdiff_t>(at, 0);
        const std::ptrdiff_t to = std::min(at + Lanes<kPixelBytes>::kRun, row.count);
        if (from < to)
            std::memcpy(reinterpret_cast<std::uint8_t*>(&run) + (from - at), row.bytes + from,
                        static_cast<std::size_t>(to - from));
    }
    return kPixelBytes == 3 ? SpreadTriples(run) : run;
}

// Stores what of the run lies in the row.
template <int kPixelBytes>
inline void StoreRun(Row row, std::ptrdiff_t at, __m128i run)
{
    if (kPixelBytes == 3)
        run = PackTriples(run);
    if (kPixelBytes != 3 && at >= 0 && at + kVector <= row.count) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row.bytes + at), run);
        return;
    }
    const std::ptrdiff_t from = std::max<std::ptrdiff_t>(at, 0);
    const std::ptrdiff_t to = std::min(at + Lanes<kPixelBytes>::kRun, row.count);
    if (to - from == Lanes<kPixelBytes>::kRun)
        std::memcpy(row.bytes + at, &run, Lanes<kPixelBytes>::kRun);
    else if (from < to)
        std::memcpy(row.bytes + from, reinterpret_cast<const std::uint8_t*>(&run) + (from - at),
                    static_cast<std::size_t>(to - from));
}

template <int kLane>
inline __m128i UnpackLow(__m128i a, __m128i b)
{
    if constexpr (kLane == 1)
        return _mm_unpacklo_epi8(a, b);
    else if constexpr (kLane == 2)
        return _mm_unpacklo_epi16(a, b);
    else
        return _mm_unpacklo_epi32(a, b);
}

template <int kLane>
inline __m128i UnpackHigh(__m128i a, __m128i b)
{
    if constexpr (kLane == 1)
        return _mm_unpackhi_epi8(a, b);
    else if constexpr (kLane == 2)
        return _mm_unpackhi_epi16(a, b);
    else
        return _mm_unpackhi_epi32(a, b);
}

// Exchanges rows and columns: each shuffle of the upper half with the lower moves one bit of the place.
template <int kPixelBytes>
inline void Transpose(typename Lanes<kPixelBytes>::Square& square)
{
    constexpr int kCount = Lanes<kPixelBytes>::kCount;
    constexpr int kLane = Lanes<kPixelBytes>::kLane;
    for (int stage = 1; stage < kCount; stage *= 2) {
        const typename Lanes<kPixelBytes>::Square old = square;
        for (int i = 0; i < kCount / 2; ++i) {
            square.at[2 * i] = UnpackLow<kLane>(old.at[i], old.at[i + kCount / 2]);
            square.at[2 * i + 1] = UnpackHigh<kLane>(old.at[i], old.at[i + kCount / 2]);
        }
    }
}

inline __m128i Select(__m128i mask, __m128i yes, __m128i no)
{
    return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}

// The mean of unsigned bytes, rounded down.
inline __m128i FloorMean(__m128i a, __m128i b)
{
    const __m128i odd = _mm_and_si128(_mm_xor_si128(a, b), _mm_set1_epi8(1));
    return _mm_sub_epi8(_mm_avg_epu8(a, b), odd);
}

// Which of the three is nearest to left + up - corner, in bytes alone. When left and up lie on the same side of corner,
// the sum is farther from corner than either of them, so corner can't be nearest; else its distance is the difference of
// the other two.
inline __m128i NearestOf(__m128i left, __m128i up, __m128i corner)
{
    const __m128i upAbove = _mm_subs_epu8(up, corner), upBelow = _mm_subs_epu8(corner, up);
    const __m128i leftAbove = _mm_subs_epu8(left, corner), leftBelow = _mm_subs_epu8(corner, left);
    const __m128i toLeft = _mm_or_si128(upAbove, upBelow);
    const __m128i toUp = _mm_or_si128(leftAbove, leftBelow);
    const __m128i opposite = _mm_or_si128(_mm_min_epu8(upAbove, leftBelow), _mm_min_epu8(upBelow, leftAbove));
    const __m128i difference = _mm_or_si128(_mm_subs_epu8(toLeft, toUp), _mm_subs_epu8(toUp, toLeft));
    const __m128i toCorner = _mm_or_si128(difference, _mm_cmpeq_epi8(opposite, _mm_setzero_si128()));
    const __m128i least = _mm_min_epu8(_mm_min_epu8(toLeft, toUp), toCorner);
    return Select(_mm_cmpeq_epi8(toLeft, least), left, Select(_mm_cmpeq_epi8(toUp, least), up, corner));
}

// The filter of each lane, as masks.
class CLaneFilters {
public:
    void SetLane(int lane, int laneBytes, std::uint8_t filter)
    {
        if (filter >= 1 && filter <= 4)
            std::memset(reinterpret_cast<std::uint8_t*>(&fMasks[filter - 1]) + lane * laneBytes, 0xFF,
                        static_cast<std::size_t>(laneBytes));
    }

    __m128i Predict(__m128i left, __m128i up, __m128i corner) const
    {
        return _mm_or_si128(_mm_or_si128(_mm_and_si128(fMasks[0], left), _mm_and_si128(fMasks[1], up)),
                            _mm_or_si128(_mm_and_si128(fMasks[2], FloorMean(left, up)),
                                         _mm_and_si128(fMasks[3], NearestOf(left, up, corner))));
    }

private:
    __m128i fMasks[4] = {};
};

// Recovers up to kCount rows below `above`. `rows` has kCount entries, of which the first `count` exist.
template <int kPixelBytes>
void UnfilterDiagonally(const Row* rows, int count, Row above, const CLaneFilters& laneFilters)
{
    using L = Lanes<kPixelBytes>;
    const CLaneFilters filters = laneFilters;
    const __m128i firstLane = _mm_cvtsi32_si128(static_cast<int>(0xFFFFFFFFu >> (32 - 8 * L::kLane)));
    const std::ptrdiff_t steps = (rows[0].count + kPixelBytes - 1) / kPixelBytes + count - 1;
    __m128i left = _mm_setzero_si128();
    __m128i corner = _mm_setzero_si128();
    for (std::ptrdiff_t step = 0; step < steps; step += L::kCount) {
        typename L::Square square;
        for (int r = 0; r < L::kCount; ++r)
            square.at[r] = LoadRun<kPixelBytes>(rows[r], (step - r) * kPixelBytes);
        __m128i fromAbove = LoadRun<kPixelBytes>(above, step * kPixelBytes);
        Transpose<kPixelBytes>(square);
        for (int i = 0; i < L::kCount; ++i) {
            const __m128i up = _mm_or_si128(_mm_slli_si128(left, L::kLane), _mm_and_si128(fromAbove, firstLane));
            fromAbove = _mm_srli_si128(fromAbove, L::kLane);
            left = _mm_add_epi8(square.at[i], filters.Predict(left, up, corner));
            square.at[i] = left;
            corner = up;
        }
        Transpose<kPixelBytes>(square);
        for (int r = 0; r < count; ++r)
            StoreRun<kPixelBytes>(rows[r], (step - r) * kPixelBytes, square.at[r]);
    }
}

// A row by itself, of a filter that needs no pixel to the left.
void UnfilterUp(Row row, Row above, std::uint8_t filter)
{
    if (filter == 2)
        for (std::ptrdiff_t i = 0; i < above.count; ++i)
            row.bytes[i] = static_cast<std::uint8_t>(row.bytes[i] + above.bytes[i]);
}

template <int kPixelBytes>
void UnfilterGroups(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rowCount)
{
    constexpr int kCount = Lanes<kPixelBytes>::kCount;
    Row above;
    for (std::int32_t y = 0; y < rowCount; y += kCount) {
        const int count = std::min(kCount, rowCount - y);
        Row rows[kCount];
        CLaneFilters filters;
        bool needsLeft = false;
        std::uint8_t* row = data + std::ptrdiff_t{y} * rowBytes;
        for (int r = 0; r < count; ++r, row += rowBytes) {
            rows[r] = {row + 1, rowBytes - 1};
            filters.SetLane(r, Lanes<kPixelBytes>::kLane, row[0]);
            needsLeft = needsLeft || row[0] == 1 || row[0] == 3 || row[0] == 4;
        }
        if (needsLeft)
            UnfilterDiagonally<kPixelBytes>(rows, count, above, filters);
        else
            for (int r = 0; r < count; ++r)
                UnfilterUp(rows[r], r == 0 ? above : rows[r - 1], rows[r].bytes[-1]);
        above = rows[count - 1];
    }
}

} // namespace

void UnfilterRows(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows, std::int32_t pixelBytes)
{
    switch (pixelBytes) {
    case 1:
        return UnfilterGroups<1>(data, rowBytes, rows);
    case 2:
        return UnfilterGroups<2>(data, rowBytes, rows);
    case 3:
        return UnfilterGroups<3>(data, rowBytes, rows);
    case 4:
        return UnfilterGroups<4>(data, rowBytes, rows);
    default: // no picture that is accepted has such pixels
        return UnfilterRowsPlainly(data, rowBytes, rows, pixelBytes);
    }
}

} // namespace Kesto
