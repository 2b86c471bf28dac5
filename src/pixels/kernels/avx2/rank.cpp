// The rank of bytes, bit by bit from the highest: a bit is set in the result if fewer than `rank`
// pixels of the box lie below the number that it makes. The pixels below it are counted for many
// boxes at once.
#include "pixels/kernels/avx2/rank_rows.h"
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// Two vectors of boxes.
struct Pair {
    __m256i fLow, fHigh;
};

// How many pixels of each box lie below its limit.
Pair CountBelow(const CRows& rows, std::size_t x, std::size_t width, const Pair& limits)
{
    Pair counts{_mm256_setzero_si256(), _mm256_setzero_si256()};
    for (std::int32_t place = 0; place < rows.Count(); ++place) {
        const Byte* row = rows.Row(place) + x;
        for (const Byte* end = row + width; row < end; ++row) {
            counts.fLow = _mm256_sub_epi8(counts.fLow, _mm256_cmpgt_epi8(limits.fLow, Load(row)));
            counts.fHigh =
                _mm256_sub_epi8(counts.fHigh, _mm256_cmpgt_epi8(limits.fHigh, Load(row + kVector)));
        }
    }
    return counts;
}

// Sets a bit where fewer than `rank` pixels lie below the number with it.
__m256i WithBit(__m256i result, __m256i bit, __m256i counts, __m256i rank)
{
    const __m256i isEnough = _mm256_cmpeq_epi8(_mm256_max_epu8(counts, rank), counts);
    return _mm256_or_si256(result, _mm256_andnot_si256(isEnough, bit));
}

Pair RanksAt(const CRows& rows, std::size_t x, std::size_t width, __m256i rank)
{
    const __m256i offset = _mm256_set1_epi8(-128);
    Pair result{_mm256_setzero_si256(), _mm256_setzero_si256()};
    for (int bit = 128; bit > 0; bit /= 2) {
        const __m256i bits = _mm256_set1_epi8(static_cast<char>(bit));
        const auto limit = [&](__m256i low) {
            return _mm256_xor_si256(_mm256_or_si256(low, bits), offset);
        };
        const Pair counts = CountBelow(rows, x, width, {limit(result.fLow), limit(result.fHigh)});
        result.fLow = WithBit(result.fLow, bits, counts.fLow, rank);
        result.fHigh = WithBit(result.fHigh, bits, counts.fHigh, rank);
    }
    return result;
}

void Rank(Plane<const std::uint32_t> source, Plane<std::uint32_t> out, BoxShape shape,
          std::int32_t rank, std::span<std::int32_t> counts, std::byte* scratch)
{
    if (!RanksAreBytes(shape, counts.size()))
        return PlainKernels().rank(source, out, shape, rank, counts, scratch);
    const std::uint32_t lastBin = static_cast<std::uint32_t>(counts.size() - 1);
    const __m256i last = _mm256_set1_epi8(static_cast<char>(lastBin));
    const __m256i ranks = _mm256_set1_epi8(RankByte(rank));
    const std::size_t n = static_cast<std::size_t>(out.fWidth),
                      width = static_cast<std::size_t>(shape.fWidth);
    CRows rows(source, shape.fHeight, n + width - 1, lastBin,
               static_cast<Byte*>(static_cast<void*>(scratch)));
    for (std::int32_t y = 0; y + 1 < shape.fHeight; ++y)
        rows.Take(y);
    alignas(kVector) Byte bins[2 * kVector];
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        rows.Take(y + shape.fHeight - 1);
        for (std::size_t x = 0; x < n; x += 2 * kVector) {
            const Pair found = RanksAt(rows, x, width, ranks);
            Store(bins, _mm256_min_epu8(found.fLow, last));
            Store(bins + kVector, _mm256_min_epu8(found.fHigh, last));
            std::uint32_t* target = out.Row(y) + x;
            for (std::size_t i = 0; i < 2 * kVector && i < n - x; ++i)
                target[i] = bins[i];
        }
    }
}

} // namespace

void AddRank(KernelTable& table)
{
    table.rank = Rank;
}

} // namespace Kesto::Kernels::Avx2
