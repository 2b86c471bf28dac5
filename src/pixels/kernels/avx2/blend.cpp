// Blending, 32 pixels of a plane at a time, by the arithmetic that equals the blend table.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// The blend table's values of 32 pairs of bytes.
__m256i WeightedBytes(__m256i alpha, __m256i value)
{
    const __m256i zero = _mm256_setzero_si256();
    const __m256i low =
        Weighted(_mm256_unpacklo_epi8(alpha, zero), _mm256_unpacklo_epi8(value, zero));
    const __m256i high =
        Weighted(_mm256_unpackhi_epi8(alpha, zero), _mm256_unpackhi_epi8(value, zero));
    return _mm256_packus_epi16(low, high);
}

// T[a][s] + T[255 - a][d]; the second is d - T[a][d].
struct Blended {
    __m256i operator()(__m256i source, __m256i below, __m256i alpha) const
    {
        return _mm256_add_epi8(
            below, _mm256_sub_epi8(WeightedBytes(alpha, source), WeightedBytes(alpha, below)));
    }
};

template <bool kPastCaches>
void Blend(const Byte* source, const Byte* below, const Byte* mask, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n) || Entangled(out, below, n) || Entangled(out, mask, n))
        return PlainKernels().blend(source, below, mask, out, n);
    MapVectors<kPastCaches>(out, n, Blended(), source, below, mask);
}

template <bool kPastCaches>
void BlendConstant(const Byte* source, const Byte* below, Byte alpha, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n) || Entangled(out, below, n))
        return PlainKernels().blendConstant(source, below, alpha, out, n);
    MapVectors<kPastCaches>(out, n, Blended(), source, below, ValueOf(alpha));
}

template <bool kPastCaches>
void BlendColour(Byte colour, const Byte* below, const Byte* mask, Byte* out, std::size_t n)
{
    if (Entangled(out, below, n) || Entangled(out, mask, n))
        return PlainKernels().blendColour(colour, below, mask, out, n);
    MapVectors<kPastCaches>(out, n, Blended(), ValueOf(colour), below, mask);
}

template <bool kPastCaches>
void BlendColourConstant(Byte colour, const Byte* below, Byte alpha, Byte* out, std::size_t n)
{
    if (Entangled(out, below, n))
        return PlainKernels().blendColourConstant(colour, below, alpha, out, n);
    MapVectors<kPastCaches>(out, n, Blended(), ValueOf(colour), below, ValueOf(alpha));
}

template <bool kPastCaches>
void BlendColours(Byte colour, Byte below, const Byte* mask, Byte* out, std::size_t n)
{
    if (Entangled(out, mask, n))
        return PlainKernels().blendColours(colour, below, mask, out, n);
    MapVectors<kPastCaches>(out, n, Blended(), ValueOf(colour), ValueOf(below), mask);
}

template <bool kPastCaches>
void ApplyMask(const Byte* source, const Byte* mask, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n) || Entangled(out, mask, n))
        return PlainKernels().applyMask(source, mask, out, n);
    MapVectors<kPastCaches>(
        out, n, [](__m256i value, __m256i alpha) { return WeightedBytes(alpha, value); }, source,
        mask);
}

template <bool kPastCaches>
void ApplyInvertedMask(const Byte* source, const Byte* mask, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n) || Entangled(out, mask, n))
        return PlainKernels().applyInvertedMask(source, mask, out, n);
    MapVectors<kPastCaches>(
        out, n,
        [](__m256i value, __m256i alpha) {
            return _mm256_sub_epi8(value, WeightedBytes(alpha, value));
        },
        source, mask);
}

template <bool kPastCaches>
void AddAll(KernelTable& table)
{
    table.blend = Blend<kPastCaches>;
    table.blendConstant = BlendConstant<kPastCaches>;
    table.blendColour = BlendColour<kPastCaches>;
    table.blendColourConstant = BlendColourConstant<kPastCaches>;
    table.blendColours = BlendColours<kPastCaches>;
    table.applyMask = ApplyMask<kPastCaches>;
    table.applyInvertedMask = ApplyInvertedMask<kPastCaches>;
}

} // namespace

void AddBlending(KernelTable& table, Stores stores)
{
    stores == Stores::kStreamed ? AddAll<true>(table) : AddAll<false>(table);
}

} // namespace Kesto::Kernels::Avx2
