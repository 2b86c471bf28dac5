// Unfiltering along a diagonal with the registers of AVX2.
#include "images/png/diagonal.h"
#include "images/png/unfilter_twins.h"

#include <immintrin.h>

namespace Kesto {
namespace {

// Two halves of 16 unsigned bytes in one register. AndNot is the second where the first is 0.
struct AvxVector {
    using V = AvxVector;

    __m256i both;

    static V Zero() { return {_mm256_setzero_si256()}; }
    static V Ones() { return {_mm256_set1_epi8(1)}; }
    static V Full() { return {_mm256_set1_epi8(-1)}; }
    static V Of(__m128i first, __m128i second) { return {_mm256_set_m128i(second, first)}; }
    __m128i First() const { return _mm256_castsi256_si128(both); }
    __m128i Second() const { return _mm256_extracti128_si256(both, 1); }

    friend V operator&(V a, V b) { return {_mm256_and_si256(a.both, b.both)}; }
    friend V operator|(V a, V b) { return {_mm256_or_si256(a.both, b.both)}; }
    friend V operator^(V a, V b) { return {_mm256_xor_si256(a.both, b.both)}; }
    friend V AndNot(V a, V b) { return {_mm256_andnot_si256(a.both, b.both)}; }
    friend V Add(V a, V b) { return {_mm256_add_epi8(a.both, b.both)}; }
    friend V Subtract(V a, V b) { return {_mm256_sub_epi8(a.both, b.both)}; }
    friend V AddCapped(V a, V b) { return {_mm256_adds_epu8(a.both, b.both)}; }
    friend V SubtractFloored(V a, V b) { return {_mm256_subs_epu8(a.both, b.both)}; }
    friend V Least(V a, V b) { return {_mm256_min_epu8(a.both, b.both)}; }
    friend V Greatest(V a, V b) { return {_mm256_max_epu8(a.both, b.both)}; }
    friend V Equal(V a, V b) { return {_mm256_cmpeq_epi8(a.both, b.both)}; }
    friend V CeilMean(V a, V b) { return {_mm256_avg_epu8(a.both, b.both)}; }

    // Bytes of each half to higher places.
    template <int kBytes>
    static V ShiftUp(V a)
    {
        return {_mm256_slli_si256(a.both, kBytes)};
    }

    // In each half: 12 bytes as four lanes of 3 bytes and a zero, and the way back.
    V Spread() const
    {
        const __m128i places = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
        return {_mm256_shuffle_epi8(both, _mm256_broadcastsi128_si256(places))};
    }
    V Packed() const
    {
        const __m128i places =
            _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
        return {_mm256_shuffle_epi8(both, _mm256_broadcastsi128_si256(places))};
    }

    // What comes into the first lane of either half: the first of `above`, and the last of the
    // first half.
    template <int kLane>
    static V Entering(V a, __m128i above)
    {
        const __m128i lane = _mm_srli_si128(_mm_set1_epi8(-1), kHalf - kLane);
        const __m256i firstInSecond = _mm256_permute2x128_si256(a.both, a.both, 0x08);
        return {_mm256_or_si256(_mm256_srli_si256(firstInSecond, kHalf - kLane),
                                _mm256_zextsi128_si256(_mm_and_si128(above, lane)))};
    }

    template <int kLane>
    static V UnpackLow(V a, V b)
    {
        if constexpr (kLane == 1)
            return V{_mm256_unpacklo_epi8(a.both, b.both)};
        else if constexpr (kLane == 2)
            return V{_mm256_unpacklo_epi16(a.both, b.both)};
        else
            return V{_mm256_unpacklo_epi32(a.both, b.both)};
    }
    template <int kLane>
    static V UnpackHigh(V a, V b)
    {
        if constexpr (kLane == 1)
            return V{_mm256_unpackhi_epi8(a.both, b.both)};
        else if constexpr (kLane == 2)
            return V{_mm256_unpackhi_epi16(a.both, b.both)};
        else
            return V{_mm256_unpackhi_epi32(a.both, b.both)};
    }
};

} // namespace

void UnfilterWithAvx2(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                      std::int32_t pixelBytes)
{
    UnfilterPixels<AvxVector>(data, rowBytes, rows, pixelBytes);
}

} // namespace Kesto
