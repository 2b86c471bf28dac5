// Unfiltering along a diagonal with pairs of the registers that every processor has.
#include "images/png/diagonal.h"
#include "images/png/unfilter_twins.h"

namespace Kesto {
namespace {

// Two halves of 16 unsigned bytes, each in a register of its own. AndNot is the second where the
// first is 0.
struct SsePair {
    using V = SsePair;

    __m128i first, second;

    static V Both(__m128i half) { return {half, half}; }
    static V Zero() { return Both(_mm_setzero_si128()); }
    static V Ones() { return Both(_mm_set1_epi8(1)); }
    static V Full() { return Both(_mm_set1_epi8(-1)); }
    static V Of(__m128i first, __m128i second) { return {first, second}; }
    __m128i First() const { return first; }
    __m128i Second() const { return second; }

    friend V operator&(V a, V b)
    {
        return {_mm_and_si128(a.first, b.first), _mm_and_si128(a.second, b.second)};
    }
    friend V operator|(V a, V b)
    {
        return {_mm_or_si128(a.first, b.first), _mm_or_si128(a.second, b.second)};
    }
    friend V operator^(V a, V b)
    {
        return {_mm_xor_si128(a.first, b.first), _mm_xor_si128(a.second, b.second)};
    }
    friend V AndNot(V a, V b)
    {
        return {_mm_andnot_si128(a.first, b.first), _mm_andnot_si128(a.second, b.second)};
    }
    friend V Add(V a, V b)
    {
        return {_mm_add_epi8(a.first, b.first), _mm_add_epi8(a.second, b.second)};
    }
    friend V Subtract(V a, V b)
    {
        return {_mm_sub_epi8(a.first, b.first), _mm_sub_epi8(a.second, b.second)};
    }
    friend V AddCapped(V a, V b)
    {
        return {_mm_adds_epu8(a.first, b.first), _mm_adds_epu8(a.second, b.second)};
    }
    friend V SubtractFloored(V a, V b)
    {
        return {_mm_subs_epu8(a.first, b.first), _mm_subs_epu8(a.second, b.second)};
    }
    friend V Least(V a, V b)
    {
        return {_mm_min_epu8(a.first, b.first), _mm_min_epu8(a.second, b.second)};
    }
    friend V Greatest(V a, V b)
    {
        return {_mm_max_epu8(a.first, b.first), _mm_max_epu8(a.second, b.second)};
    }
    friend V Equal(V a, V b)
    {
        return {_mm_cmpeq_epi8(a.first, b.first), _mm_cmpeq_epi8(a.second, b.second)};
    }
    friend V CeilMean(V a, V b)
    {
        return {_mm_avg_epu8(a.first, b.first), _mm_avg_epu8(a.second, b.second)};
    }

    // Bytes of each half to higher or lower places.
    template <int kBytes>
    static V ShiftUp(V a)
    {
        return {_mm_slli_si128(a.first, kBytes), _mm_slli_si128(a.second, kBytes)};
    }
    template <int kBytes>
    static V ShiftDown(V a)
    {
        return {_mm_srli_si128(a.first, kBytes), _mm_srli_si128(a.second, kBytes)};
    }

    // In each half: 12 bytes as four lanes of 3 bytes and a zero, and the way back.
    V Spread() const
    {
        return ((Triple(0) & *this) | (Triple(1) & ShiftUp<1>(*this))) |
               ((Triple(2) & ShiftUp<2>(*this)) | (Triple(3) & ShiftUp<3>(*this)));
    }
    V Packed() const
    {
        return ((Triple(0) & *this) | ShiftDown<1>(Triple(1) & *this)) |
               (ShiftDown<2>(Triple(2) & *this) | ShiftDown<3>(Triple(3) & *this));
    }
    static V Triple(int lane)
    {
        const auto mask = [lane](int i) { return i == lane ? 0xFFFFFF : 0; };
        return Both(_mm_setr_epi32(mask(0), mask(1), mask(2), mask(3)));
    }

    // What comes into the first lane of either half: the first of `above`, and the last of the
    // first half.
    template <int kLane>
    static V Entering(V a, __m128i above)
    {
        const __m128i lane = _mm_srli_si128(_mm_set1_epi8(-1), kHalf - kLane);
        return {_mm_and_si128(above, lane), _mm_srli_si128(a.first, kHalf - kLane)};
    }

    template <int kLane>
    static V UnpackLow(V a, V b)
    {
        if constexpr (kLane == 1)
            return V{_mm_unpacklo_epi8(a.first, b.first), _mm_unpacklo_epi8(a.second, b.second)};
        else if constexpr (kLane == 2)
            return V{_mm_unpacklo_epi16(a.first, b.first), _mm_unpacklo_epi16(a.second, b.second)};
        else
            return V{_mm_unpacklo_epi32(a.first, b.first), _mm_unpacklo_epi32(a.second, b.second)};
    }
    template <int kLane>
    static V UnpackHigh(V a, V b)
    {
        if constexpr (kLane == 1)
            return V{_mm_unpackhi_epi8(a.first, b.first), _mm_unpackhi_epi8(a.second, b.second)};
        else if constexpr (kLane == 2)
            return V{_mm_unpackhi_epi16(a.first, b.first), _mm_unpackhi_epi16(a.second, b.second)};
        else
            return V{_mm_unpackhi_epi32(a.first, b.first), _mm_unpackhi_epi32(a.second, b.second)};
    }
};

} // namespace

void UnfilterWithSse2(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                      std::int32_t pixelBytes)
{
    UnfilterPixels<SsePair>(data, rowBytes, rows, pixelBytes);
}

} // namespace Kesto
