// The sums of a checksum with the registers of AVX2.
#include "images/png/adler_twins.h"

#include <immintrin.h>

namespace Kesto {

namespace {

std::uint64_t SumOfLanes(__m256i lanes)
{
    alignas(32) std::uint32_t each[8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(each), lanes);
    std::uint64_t sum = 0;
    for (const std::uint32_t lane : each)
        sum += lane;
    return sum;
}

} // namespace

AdlerSums AdlerSumsWithAvx2(const std::uint8_t* bytes, std::size_t count)
{
    const __m256i zero = _mm256_setzero_si256();
    const __m256i ones = _mm256_set1_epi16(1);
    const __m256i weights =
        _mm256_setr_epi8(32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14,
                         13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1);
    __m256i plain = zero, before = zero, weighted = zero;
    for (std::size_t i = 0; i < count; i += kAdlerStep) {
        const __m256i next = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes + i));
        before = _mm256_add_epi32(before, plain);
        plain = _mm256_add_epi32(plain, _mm256_sad_epu8(next, zero));
        weighted = _mm256_add_epi32(weighted,
                                    _mm256_madd_epi16(_mm256_maddubs_epi16(next, weights), ones));
    }
    return {SumOfLanes(plain), SumOfLanes(weighted) + kAdlerStep * SumOfLanes(before)};
}

} // namespace Kesto
