// Rows of mosaic cells.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// As many rows of bytes add up in 16 bits.
constexpr std::int32_t kMostRows = 257;

// sums[x] += the column's pixels, of at most kMostRows rows.
void AddColumns(Plane<const Byte> source, std::uint32_t* sums)
{
    const std::size_t n = static_cast<std::size_t>(source.fWidth);
    std::size_t x = 0;
    for (; x + 16 <= n; x += 16) {
        __m256i words = _mm256_setzero_si256();
        for (std::int32_t y = 0; y < source.fHeight; ++y)
            words = _mm256_add_epi16(words, Load16(source.Row(y) + x));
        const __m256i low = _mm256_cvtepu16_epi32(_mm256_castsi256_si128(words));
        const __m256i high = _mm256_cvtepu16_epi32(_mm256_extracti128_si256(words, 1));
        Store(sums + x, _mm256_add_epi32(Load(sums + x), low));
        Store(sums + x + 8, _mm256_add_epi32(Load(sums + x + 8), high));
    }
    for (; x < n; ++x)
        for (std::int32_t y = 0; y < source.fHeight; ++y)
            sums[x] += source.Row(y)[x];
}

// Sets `count` pixels, and maybe more, but none beyond the end.
void SetPixels(Byte* first, const Byte* end, Byte value, std::size_t count)
{
    if (count <= kVector && end - first >= static_cast<std::ptrdiff_t>(kVector))
        Store(first, _mm256_set1_epi8(static_cast<char>(value)));
    else
        std::memset(first, value, count);
}

// The columns are added up first, then the sums of each cell's; the first row is copied to the
// others.
void MosaicBand(Plane<const Byte> source, Plane<Byte> out, std::int32_t cellWidth, bool round,
                std::uint32_t* sums)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    std::memset(sums, 0, n * sizeof(std::uint32_t));
    for (std::int32_t y = 0; y < out.fHeight; y += kMostRows) {
        const std::int32_t rows = out.fHeight - y < kMostRows ? out.fHeight - y : kMostRows;
        AddColumns({source.Row(y), source.fRowBytes, source.fWidth, rows}, sums);
    }
    Byte* first = out.Row(0);
    for (std::size_t x = 0; x < n;) {
        const std::size_t step = static_cast<std::size_t>(cellWidth);
        const std::size_t width = step < n - x ? step : n - x;
        const std::uint64_t count = width * static_cast<std::size_t>(out.fHeight);
        std::uint64_t sum = round ? count / 2 : 0;
        for (std::size_t i = 0; i < width; ++i)
            sum += sums[x + i];
        SetPixels(first + x, first + n, static_cast<Byte>(sum / count), width);
        x += width;
    }
    for (std::int32_t y = 1; y < out.fHeight; ++y)
        std::memcpy(out.Row(y), first, n);
}

} // namespace

void AddMosaic(KernelTable& table)
{
    table.mosaicBand = MosaicBand;
}

} // namespace Kesto::Kernels::Avx2
