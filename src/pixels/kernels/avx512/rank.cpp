// The rank of bytes as with AVX2, for twice as many boxes at once; comparisons give masks.
#include "pixels/kernels/avx2/rank_rows.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {

namespace {

using Avx2::CRows;

constexpr std::size_t kWide = 64; // bytes
constexpr std::size_t kBoxes = 2 * kWide;

// Two vectors of boxes.
struct Pair {
    __m512i fLow, fHigh;
};

__m512i Spread(int byte)
{
    return _mm512_set1_epi8(static_cast<char>(byte));
}

// Adds 1 where the byte of a row lies below the limit.
__m512i Counted(__m512i counts, __m512i limits, const Byte* row)
{
    return _mm512_mask_sub_epi8(counts, _mm512_cmpgt_epi8_mask(limits, _mm512_loadu_si512(row)),
                                counts, Spread(-1));
}

// How many pixels of each box lie below its limit.
Pair CountBelow(const CRows& rows, std::size_t x, std::size_t width, const Pair& limits)
{
    Pair counts{_mm512_setzero_si512(), _mm512_setzero_si512()};
    for (std::int32_t place = 0; place < rows.Count(); ++place) {
        const Byte* row = rows.Row(place) + x;
        for (const Byte* end = row + width; row < end; ++row) {
            counts.fLow = Counted(counts.fLow, limits.fLow, row);
            counts.fHigh = Counted(counts.fHigh, limits.fHigh, row + kWide);
        }
    }
    return counts;
}

// Sets a bit where fewer than `rank` pixels lie below the number with it.
__m512i WithBit(__m512i result, __m512i bit, __m512i counts, __m512i rank)
{
    return _mm512_mask_add_epi8(result, _mm512_cmplt_epu8_mask(counts, rank), result, bit);
}

Pair RanksAt(const CRows& rows, std::size_t x, std::size_t width, __m512i rank)
{
    Pair result{_mm512_setzero_si512(), _mm512_setzero_si512()};
    for (int bit = 128; bit > 0; bit /= 2) {
        const __m512i bits = Spread(bit);
        const auto limit = [&](__m512i low) {
            return _mm512_xor_si512(_mm512_or_si512(low, bits), Spread(-128));
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
    if (!Avx2::RanksAreBytes(shape, counts.size()))
        return PlainKernels().rank(source, out, shape, rank, counts, scratch);
    const std::uint32_t lastBin = static_cast<std::uint32_t>(counts.size() - 1);
    const __m512i last = Spread(static_cast<int>(lastBin));
    const __m512i ranks = Spread(Avx2::RankByte(rank));
    const std::size_t n = static_cast<std::size_t>(out.fWidth),
                      width = static_cast<std::size_t>(shape.fWidth);
    CRows rows(source, shape.fHeight, n + width - 1, lastBin,
               static_cast<Byte*>(static_cast<void*>(scratch)));
    for (std::int32_t y = 0; y + 1 < shape.fHeight; ++y)
        rows.Take(y);
    alignas(kWide) Byte bins[kBoxes];
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        rows.Take(y + shape.fHeight - 1);
        for (std::size_t x = 0; x < n; x += kBoxes) {
            const Pair found = RanksAt(rows, x, width, ranks);
            _mm512_store_si512(bins, _mm512_min_epu8(found.fLow, last));
            _mm512_store_si512(bins + kWide, _mm512_min_epu8(found.fHigh, last));
            std::uint32_t* target = out.Row(y) + x;
            for (std::size_t i = 0; i < kBoxes && i < n - x; ++i)
                target[i] = bins[i];
        }
    }
}

} // namespace

void AddRank(KernelTable& table)
{
    table.rank = Rank;
}

} // namespace Kesto::Kernels::Avx512
