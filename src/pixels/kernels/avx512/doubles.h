// Eight pixels as doubles and back, for the AVX-512 sources that scale. Internal linkage
// throughout; see avx2/vectors.h.
#pragma once

#include "pixels/kernels/avx2/doubles.h"

namespace Kesto::Kernels::Avx512 {
namespace {

constexpr std::size_t kLanes = 8; // doubles of a vector

inline __m512d Load8(const std::uint8_t* from)
{
    return _mm512_cvtepi32_pd(_mm256_cvtepu8_epi32(
        _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(from)))));
}
inline __m512d Load8(const std::uint16_t* from)
{
    return _mm512_cvtepi32_pd(_mm256_cvtepu16_epi32(Load128(from)));
}
inline __m512d Load8(const std::uint32_t* from)
{
    return _mm512_cvtepu32_pd(Load(from));
}

// Truncated. All results are within their type but for a 32-bit white, which is held to its value.
inline void Store8(std::uint8_t* to, __m512d values)
{
    _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(to)),
                     _mm256_cvtusepi32_epi8(_mm512_cvttpd_epi32(values)));
}
inline void Store8(std::uint16_t* to, __m512d values)
{
    _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(to)),
                     _mm256_cvtusepi32_epi16(_mm512_cvttpd_epi32(values)));
}
inline void Store8(std::uint32_t* to, __m512d values)
{
    Store(to, _mm512_cvttpd_epu32(_mm512_min_pd(values, _mm512_set1_pd(4294967295.0))));
}

} // namespace
} // namespace Kesto::Kernels::Avx512
