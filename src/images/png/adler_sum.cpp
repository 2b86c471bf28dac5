#include "images/png/adler_sum.h"

#include "images/png/adler_twins.h"
#include "pixels/kernels/cpu.h"

#include <emmintrin.h>

#include <algorithm>

namespace Kesto {

namespace {

constexpr std::uint32_t kModulus = 65521;
constexpr std::size_t kVector = 16; // bytes

std::uint64_t SumOfLanes(__m128i lanes)
{
    alignas(kVector) std::uint32_t each[4];
    _mm_store_si128(reinterpret_cast<__m128i*>(each), lanes);
    return std::uint64_t{each[0]} + each[1] + each[2] + each[3];
}

} // namespace

AdlerSums AdlerSumsWithSse2(const std::uint8_t* bytes, std::size_t count)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i firstWeights = _mm_setr_epi16(16, 15, 14, 13, 12, 11, 10, 9);
    const __m128i lastWeights = _mm_setr_epi16(8, 7, 6, 5, 4, 3, 2, 1);
    __m128i plain = zero, before = zero, weighted = zero;
    for (std::size_t i = 0; i < count; i += kVector) {
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
        before = _mm_add_epi32(before, plain);
        plain = _mm_add_epi32(plain, _mm_sad_epu8(next, zero));
        const __m128i products =
            _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(next, zero), firstWeights),
                          _mm_madd_epi16(_mm_unpackhi_epi8(next, zero), lastWeights));
        weighted = _mm_add_epi32(weighted, products);
    }
    return {SumOfLanes(plain), SumOfLanes(weighted) + kVector * SumOfLanes(before)};
}

void AdlerSum::Add(std::span<const std::uint8_t> bytes)
{
    const auto sumsOf = Kernels::ActiveCpuLevel() >= Kernels::CpuLevel::kAvx2 ? AdlerSumsWithAvx2
                                                                              : AdlerSumsWithSse2;
    while (bytes.size() >= kAdlerStep) {
        const std::size_t count = std::min(bytes.size(), kMostAdlerBytes) / kAdlerStep * kAdlerStep;
        const AdlerSums sums = sumsOf(bytes.data(), count);
        fSecond = static_cast<std::uint32_t>(
            (fSecond + std::uint64_t{fFirst} * count + sums.weighted) % kModulus);
        fFirst = static_cast<std::uint32_t>((fFirst + sums.plain) % kModulus);
        bytes = bytes.subspan(count);
    }
    for (const std::uint8_t byte : bytes) {
        fFirst = (fFirst + byte) % kModulus;
        fSecond = (fSecond + fFirst) % kModulus;
    }
}

} // namespace Kesto
