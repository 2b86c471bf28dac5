// Pixels as doubles and back, for the AVX2 sources that scale. Internal linkage throughout; see
// vectors.h.
#pragma once

#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/kernel_table.h"

namespace Kesto::Kernels::Avx2 {
namespace {

// A double that holds a whole number below 2^52 in its low bits.
constexpr double kBias = 4503599627370496.0;

// Whole numbers below 2^52 as doubles.
inline __m256d Doubles(__m256i wide)
{
    const __m256d bias = _mm256_set1_pd(kBias);
    return _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(wide, _mm256_castpd_si256(bias))),
                         bias);
}

// Four pixels as doubles.
inline __m256d Doubles(const std::uint8_t* from)
{
    std::int32_t four;
    std::memcpy(&four, from, 4);
    return _mm256_cvtepi32_pd(_mm_cvtepu8_epi32(_mm_cvtsi32_si128(four)));
}
inline __m256d Doubles(const std::uint16_t* from)
{
    return _mm256_cvtepi32_pd(_mm_cvtepu16_epi32(
        _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(from)))));
}
inline __m256d Doubles(const std::uint32_t* from)
{
    return Doubles(_mm256_cvtepu32_epi64(Load128(from)));
}

// Four pixels from anywhere.
inline __m256d FourDoubles(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    const std::uint32_t pixels[4] = {a, b, c, d};
    return Doubles(pixels);
}
template <class T>
inline __m256d FourDoubles(T a, T b, T c, T d)
{
    return _mm256_cvtepi32_pd(_mm_setr_epi32(a, b, c, d));
}

// Four results, truncated. All are within their type but for a 32-bit white, which is held to its
// value.
inline void StoreTruncated(std::uint8_t* to, __m256d values)
{
    const __m128i words = _mm_packs_epi32(_mm256_cvttpd_epi32(values), _mm_setzero_si128());
    const std::int32_t four = _mm_cvtsi128_si32(_mm_packus_epi16(words, words));
    std::memcpy(to, &four, 4);
}
inline void StoreTruncated(std::uint16_t* to, __m256d values)
{
    const __m128i words = _mm_packus_epi32(_mm256_cvttpd_epi32(values), _mm_setzero_si128());
    _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(to)), words);
}
inline void StoreTruncated(std::uint32_t* to, __m256d values)
{
    const __m256d held = _mm256_min_pd(values, _mm256_set1_pd(4294967295.0));
    const __m256d whole = _mm256_round_pd(held, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
    const __m256i biased = _mm256_castpd_si256(_mm256_add_pd(whole, _mm256_set1_pd(kBias)));
    const __m256i low =
        _mm256_permutevar8x32_epi32(biased, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
    _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(to)), _mm256_castsi256_si128(low));
}

// out = sums * scale of four pixels.
template <class T>
inline void StoreScaled(T* out, __m256d sums, __m256d scale)
{
    StoreTruncated(out, _mm256_add_pd(_mm256_mul_pd(sums, scale), _mm256_set1_pd(0.5)));
}

// The table of plain operations for one pixel type.
template <class T>
inline const ScaleRows<T>& PlainRows()
{
    if constexpr (sizeof(T) == 1)
        return PlainKernels().scale8;
    else if constexpr (sizeof(T) == 2)
        return PlainKernels().scale16;
    else
        return PlainKernels().scale32;
}

// The columns from the i-th entry on, `count` of them.
inline ScaleColumns Part(ScaleColumns columns, std::size_t i, std::size_t count)
{
    columns.fEntries += i;
    columns.fCount = count;
    return columns;
}
inline ScaleColumns Rest(const ScaleColumns& columns, std::size_t i)
{
    return Part(columns, i, columns.fCount - i);
}

} // namespace
} // namespace Kesto::Kernels::Avx2
