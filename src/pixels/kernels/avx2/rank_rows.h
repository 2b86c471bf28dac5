// The rows of a rank's boxes as bytes, for the sources of the fast twins. Internal linkage
// throughout; see vectors.h.
#pragma once

#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/box_shape.h"
#include "pixels/kernels/plane.h"

namespace Kesto::Kernels::Avx2 {
namespace {

constexpr std::int32_t kMostPixels = 254; // in a box, so that a count and a rank above it are bytes
constexpr std::size_t kMostBins = 256;
constexpr std::size_t kSlack = 128; // bytes after a row, so that whole vectors can be read

// Bins and counts are bytes in the twins; what doesn't fit goes the plain way.
inline bool RanksAreBytes(BoxShape shape, std::size_t bins)
{
    return bins <= kMostBins && shape.fWidth <= kMostPixels && shape.fHeight <= kMostPixels &&
           shape.Area() <= kMostPixels;
}

// The rank as a byte that compares with counts as it does.
inline char RankByte(std::int32_t rank)
{
    return static_cast<char>(rank < 0 ? 0 : rank > 255 ? 255 : rank);
}

// Bins as bytes, less 128, since vectors compare with a sign.
inline void TakeRow(const std::uint32_t* source, Byte* out, std::size_t n, std::uint32_t lastBin)
{
    const __m256i last = _mm256_set1_epi32(static_cast<int>(lastBin));
    std::size_t i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m256i words = _mm256_packus_epi32(_mm256_min_epu32(Load(source + i), last),
                                                  _mm256_min_epu32(Load(source + i + 8), last));
        const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packus_epi16(words, words), 0xD8);
        const __m256i order =
            _mm256_setr_epi32(0, 2, 1, 3, 0, 0, 0, 0); // the packing went by halves
        const __m256i sorted = _mm256_permutevar8x32_epi32(bytes, order);
        _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(out + i)),
                         _mm_xor_si128(_mm256_castsi256_si128(sorted), _mm_set1_epi8(-128)));
    }
    for (; i < n; ++i)
        out[i] = static_cast<Byte>((source[i] < lastBin ? source[i] : lastBin) ^ 128);
}

// The rows of bytes that the boxes of one target row lie in.
class CRows {
public:
    CRows(Plane<const std::uint32_t> source, std::int32_t height, std::size_t columns,
          std::uint32_t lastBin, Byte* scratch)
        : fSource(source), fHeight(height), fColumns(columns), fLastBin(lastBin), fRows(scratch)
    {
    }

    // Source rows come in order from 0; each takes the place of the one a box's height above.
    void Take(std::int32_t y) { TakeRow(fSource.Row(y), Row(y % fHeight), fColumns, fLastBin); }

    Byte* Row(std::int32_t place) const
    {
        return fRows + (fColumns + kSlack) * static_cast<std::size_t>(place);
    }
    std::int32_t Count() const { return fHeight; }

private:
    Plane<const std::uint32_t> fSource;
    std::int32_t fHeight;
    std::size_t fColumns;
    std::uint32_t fLastBin;
    Byte* fRows;
};

} // namespace
} // namespace Kesto::Kernels::Avx2
