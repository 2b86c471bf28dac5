// Planes to 32-bit pixels and back, sixteen pixels at a time. The last step of a row overlaps the
// one before, so that no pixel of a small picture is left to the plain loop.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

constexpr std::size_t kPixels = 16; // of a step

// Calls step<past caches>(i) for steps that together cover n pixels, of which there are enough for
// one. The last step isn't aligned, so its result goes to the caches.
template <bool kPastCaches, class Step>
void ForEachStep(std::size_t n, const Step& step)
{
    std::size_t i = 0;
    for (; i + kPixels <= n; i += kPixels)
        step.template operator()<kPastCaches>(i);
    if constexpr (kPastCaches)
        _mm_sfence();
    if (i < n)
        step.template operator()<false>(n - kPixels);
}

// Sixteen 16-bit numbers of one byte of the pixels: of a row, or the constant.
struct Bytes {
    explicit Bytes(const MergedRows& rows, std::size_t byte)
        : fRow(rows.fBytes[byte]), fConstant(_mm256_set1_epi16(rows.fConstant))
    {
    }
    __m256i operator()(std::size_t i) const
    {
        return fRow != nullptr ? Load16(fRow + i) : fConstant;
    }

    const Byte* fRow;
    __m256i fConstant;
};

// Sixteen bytes past the caches or to them. Where they are to pass, the address is aligned.
template <bool kPastCaches>
void StoreHalf(void* to, __m128i bytes)
{
    __m128i* const half = static_cast<__m128i*>(to);
    kPastCaches ? _mm_stream_si128(half, bytes) : _mm_storeu_si128(half, bytes);
}

template <bool kPastCaches>
void StoreWhole(std::uint32_t* to, __m256i pixels)
{
    StoreHalf<kPastCaches>(to, _mm256_castsi256_si128(pixels));
    StoreHalf<kPastCaches>(to + 4, _mm256_extracti128_si256(pixels, 1));
}

bool IsAligned(const void* address)
{
    return reinterpret_cast<std::uintptr_t>(address) % sizeof(__m128i) == 0;
}

template <bool kPastCaches>
void StorePixels(std::uint32_t* out, __m256i b0, __m256i b1, __m256i b2, __m256i b3)
{
    const __m256i low = _mm256_or_si256(b0, _mm256_slli_epi16(b1, 8));
    const __m256i high = _mm256_or_si256(b2, _mm256_slli_epi16(b3, 8));
    const __m256i even = _mm256_unpacklo_epi16(low, high); // pixels 0 to 3 and 8 to 11
    const __m256i odd = _mm256_unpackhi_epi16(low, high);  // pixels 4 to 7 and 12 to 15
    StoreWhole<kPastCaches>(out, _mm256_permute2x128_si256(even, odd, 0x20));
    StoreWhole<kPastCaches>(out + 8, _mm256_permute2x128_si256(even, odd, 0x31));
}

// Of rows that are larger than the caches, once for each of their cache lines.
void FetchAhead(const MergedRows& rows, std::size_t i)
{
    if (i % 64 == 0)
        for (const Byte* row : rows.fBytes)
            if (row != nullptr)
                Kernels::FetchAhead(row, i);
}

template <bool kPastCaches>
void MergePlanes(const MergedRows& source, std::uint32_t* out, std::size_t n)
{
    if (n < kPixels)
        return PlainKernels().mergePlanes(source, out, n);
    const Bytes b0(source, 0), b1(source, 1), b2(source, 2), b3(source, 3);
    const auto step = [&]<bool kPast>(std::size_t i) {
        if constexpr (kPast)
            FetchAhead(source, i);
        StorePixels<kPast>(out + i, b0(i), b1(i), b2(i), b3(i));
    };
    kPastCaches&& IsAligned(out) ? ForEachStep<true>(n, step) : ForEachStep<false>(n, step);
}

template <bool kPastCaches>
void MergePremultiplied(const MergedRows& source, std::uint32_t* out, std::size_t n)
{
    if (n < kPixels)
        return PlainKernels().mergePremultiplied(source, out, n);
    const Bytes b0(source, 0), b1(source, 1), b2(source, 2), b3(source, 3);
    const auto step = [&]<bool kPast>(std::size_t i) {
        if constexpr (kPast)
            FetchAhead(source, i);
        const __m256i alpha = b3(i);
        StorePixels<kPast>(out + i, Weighted(alpha, b0(i)), Weighted(alpha, b1(i)),
                           Weighted(alpha, b2(i)), alpha);
    };
    kPastCaches&& IsAligned(out) ? ForEachStep<true>(n, step) : ForEachStep<false>(n, step);
}

// Eight pixels as four times eight bytes, the lowest bytes first.
__m256i BytesOf(const std::uint32_t* pixels)
{
    const __m256i byByte = _mm256_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 0,
                                            4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15);
    const __m256i byLane = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
    return _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(Load(pixels), byByte), byLane);
}

template <bool kPastCaches>
void StoreRow(Byte* row, std::size_t i, __m128i bytes)
{
    if (row != nullptr)
        StoreHalf<kPastCaches>(row + i, bytes);
}

template <bool kPastCaches>
void SplitPlanes(const std::uint32_t* source, const SplitRows& out, std::size_t n)
{
    if (n < kPixels)
        return PlainKernels().splitPlanes(source, out, n);
    // Copies, or the stores through bytes would make the compiler read them anew each time.
    Byte* const row0 = out[0];
    Byte* const row1 = out[1];
    Byte* const row2 = out[2];
    Byte* const row3 = out[3];
    const auto step = [&]<bool kPast>(std::size_t i) {
        const __m256i first = BytesOf(source + i);
        const __m256i second = BytesOf(source + i + 8);
        const __m256i even = _mm256_unpacklo_epi64(first, second); // bytes 0 and 2
        const __m256i odd = _mm256_unpackhi_epi64(first, second);  // bytes 1 and 3
        StoreRow<kPast>(row0, i, _mm256_castsi256_si128(even));
        StoreRow<kPast>(row1, i, _mm256_castsi256_si128(odd));
        StoreRow<kPast>(row2, i, _mm256_extracti128_si256(even, 1));
        StoreRow<kPast>(row3, i, _mm256_extracti128_si256(odd, 1));
    };
    const bool aligned = IsAligned(row0) && IsAligned(row1) && IsAligned(row2) && IsAligned(row3);
    kPastCaches&& aligned ? ForEachStep<true>(n, step) : ForEachStep<false>(n, step);
}

// Eight pixels at a time, of which the second four begin at the fifth byte of their half.
void WidenRGB(const Byte* source, std::uint32_t* out, std::size_t n)
{
    constexpr std::size_t kPixelsOfVector = 8;
    constexpr char kNone = -1;
    const __m256i order =
        _mm256_setr_epi8(2, 1, 0, kNone, 5, 4, 3, kNone, 8, 7, 6, kNone, 11, 10, 9, kNone, 6, 5, 4,
                         kNone, 9, 8, 7, kNone, 12, 11, 10, kNone, 15, 14, 13, kNone);
    const __m256i opaque = _mm256_set1_epi32(static_cast<int>(0xFF000000));
    std::size_t i = 0;
    for (; i + kPixelsOfVector <= n; i += kPixelsOfVector, source += 3 * kPixelsOfVector) {
        const __m256i halves = LoadHalves(source, source + 8);
        Store(out + i, _mm256_or_si256(_mm256_shuffle_epi8(halves, order), opaque));
    }
    PlainKernels().widenRGB(source, out + i, n - i);
}

template <bool kPastCaches>
void AddAll(KernelTable& table)
{
    table.mergePlanes = MergePlanes<kPastCaches>;
    table.mergePremultiplied = MergePremultiplied<kPastCaches>;
    table.splitPlanes = SplitPlanes<kPastCaches>;
    table.widenRGB = WidenRGB;
}

} // namespace

void AddMerging(KernelTable& table, Stores stores)
{
    stores == Stores::kStreamed ? AddAll<true>(table) : AddAll<false>(table);
}

} // namespace Kesto::Kernels::Avx2
