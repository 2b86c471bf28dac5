// Premultiplied pixels over others, eight at a time.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

constexpr std::size_t kPixels = 8; // of a vector

// What is left of four pixels, in 16 bits a channel, under four others.
__m256i Left(__m256i above, __m256i below)
{
    const __m256i alphas = _mm256_shuffle_epi8(
        above, _mm256_setr_epi8(6, -1, 6, -1, 6, -1, 6, -1, 14, -1, 14, -1, 14, -1, 14, -1, 6, -1,
                                6, -1, 6, -1, 6, -1, 14, -1, 14, -1, 14, -1, 14, -1));
    return Weighted(_mm256_sub_epi16(_mm256_set1_epi16(255), alphas), below);
}

__m256i Over(__m256i above, __m256i below)
{
    const __m256i zero = _mm256_setzero_si256();
    const __m256i low = Left(_mm256_unpacklo_epi8(above, zero), _mm256_unpacklo_epi8(below, zero));
    const __m256i high = Left(_mm256_unpackhi_epi8(above, zero), _mm256_unpackhi_epi8(below, zero));
    return _mm256_adds_epu8(above, _mm256_packus_epi16(low, high));
}

// Most of a picture is either not there or opaque.
void LayVector(__m256i above, std::uint32_t* out)
{
    if (_mm256_testz_si256(above, above))
        return;
    const __m256i alphas = _mm256_set1_epi32(static_cast<int>(0xFF000000));
    const bool opaque = _mm256_testc_si256(above, alphas) != 0;
    Store(out, opaque ? above : Over(above, Load(out)));
}

// Where a row is no whole number of vectors the last one overlaps the one before: it is computed
// from what lay there before all others.
void LayOver(const std::uint32_t* source, std::uint32_t* out, std::size_t n)
{
    if (n < kPixels)
        return PlainKernels().layOver(source, out, n);
    const std::size_t last = n - kPixels;
    const bool overlaps = n % kPixels != 0;
    const __m256i end = overlaps ? Over(Load(source + last), Load(out + last)) : __m256i{};
    for (std::size_t i = 0; i + kPixels <= n; i += kPixels)
        LayVector(Load(source + i), out + i);
    if (overlaps)
        Store(out + last, end);
}

} // namespace

void AddLaying(KernelTable& table)
{
    table.layOver = LayOver;
}

} // namespace Kesto::Kernels::Avx2
