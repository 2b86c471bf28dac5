// Kernels of the 3 by 3 neighbourhood: sharpening, the mean, embossing.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

__m256i SumOfThree(const std::int16_t* const rows[3], std::size_t i)
{
    return _mm256_add_epi16(_mm256_add_epi16(Load(rows[0] + i), Load(rows[1] + i)),
                            Load(rows[2] + i));
}

void EmbossRow(const std::int16_t* const near[3], const std::int16_t* const far[3],
               const Byte* base, std::int32_t constant, Byte* out, std::size_t n)
{
    const __m256i level = _mm256_set1_epi16(static_cast<short>(constant));
    const auto pixels = [&](std::size_t i) {
        const __m256i relief = _mm256_sub_epi16(SumOfThree(near, i), SumOfThree(far, i));
        return _mm256_add_epi16(relief, base != nullptr ? Load16(base + i) : level);
    };
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector)
        Store(out + i, Packed(pixels(i), pixels(i + 16)));
    const std::int16_t* const nearRest[3] = {near[0] + i, near[1] + i, near[2] + i};
    const std::int16_t* const farRest[3] = {far[0] + i, far[1] + i, far[2] + i};
    PlainKernels().embossRow(nearRest, farRest, base != nullptr ? base + i : nullptr, constant,
                             out + i, n - i);
}

// Sixteen sums of the four neighbours.
__m256i Around(const Byte* const rows[3], std::size_t i)
{
    return _mm256_add_epi16(_mm256_add_epi16(Load16(rows[1] + i - 1), Load16(rows[1] + i + 1)),
                            _mm256_add_epi16(Load16(rows[0] + i), Load16(rows[2] + i)));
}

__m256i Edges(const Byte* const rows[3], std::size_t i)
{
    return _mm256_sub_epi16(_mm256_slli_epi16(Load16(rows[1] + i), 2), Around(rows, i));
}

constexpr std::int32_t kLargestEdge = 1020;

// What a sharpening table does, where it is a plain multiple: edge * fAmount / 256, rounded down or
// toward zero.
struct Gain {
    enum class Kind { kNone, kDown, kTowardZero };

    static Gain Of(const std::int32_t* table)
    {
        const std::int32_t amount = table[256];
        if (amount > 4095 || amount < -4095 || table[0] != 0)
            return {Kind::kNone, 0};
        if (Fits(table, amount, [](std::int32_t product) { return product >> 8; }))
            return {Kind::kDown, amount};
        if (amount >= 0 && Fits(table, amount, [](std::int32_t product) { return product / 256; }))
            return {Kind::kTowardZero, amount};
        return {Kind::kNone, 0};
    }

    template <class Divide>
    static bool Fits(const std::int32_t* table, std::int32_t amount, Divide divide)
    {
        for (std::int32_t edge = -kLargestEdge; edge <= kLargestEdge; ++edge)
            if (table[edge] != divide(edge * amount))
                return false;
        return true;
    }

    Kind fKind;
    std::int32_t fAmount;
};

template <class Gained>
void SharpenVectors(const Byte* const rows[3], Byte* out, std::size_t n, std::size_t& i,
                    const Gained& gained)
{
    const auto sharpened = [&](std::size_t at) {
        return _mm256_adds_epi16(Load16(rows[1] + at), gained(Edges(rows, at)));
    };
    for (; i + kVector <= n; i += kVector)
        Store(out + i, Packed(sharpened(i), sharpened(i + 16)));
}

// Any other table: edges by vectors, the rest pixel by pixel.
void SharpenByTable(const Byte* const rows[3], const std::int32_t* table, Byte* out, std::size_t n,
                    std::size_t& i)
{
    alignas(kVector) std::int16_t edges[16];
    const Byte* centre = rows[1];
    for (; i + 16 <= n; i += 16) {
        Store(edges, Edges(rows, i));
        for (std::size_t k = 0; k < 16; ++k) {
            const std::int64_t value = std::int64_t{centre[i + k]} + table[edges[k]];
            out[i + k] = static_cast<Byte>(value < 0 ? 0 : value > 255 ? 255 : value);
        }
    }
}

// As many pixels of a row as whole vectors hold; the number of them.
std::size_t SharpenStart(const Byte* const rows[3], const std::int32_t* table, const Gain& gain,
                         Byte* out, std::size_t n)
{
    std::size_t i = 0;
    const __m256i amount = _mm256_set1_epi16(static_cast<short>(gain.fAmount * 8));
    // edge * 32 fits in 16 bits, and the high half of (edge * 32) * (amount * 8) is edge * amount /
    // 256, rounded down.
    const auto times = [amount](__m256i edges) {
        return _mm256_mulhi_epi16(_mm256_slli_epi16(edges, 5), amount);
    };
    if (gain.fKind == Gain::Kind::kDown && gain.fAmount == 256)
        SharpenVectors(rows, out, n, i, [](__m256i edges) { return edges; });
    else if (gain.fKind == Gain::Kind::kDown)
        SharpenVectors(rows, out, n, i, times);
    else if (gain.fKind == Gain::Kind::kTowardZero)
        SharpenVectors(rows, out, n, i, [&](__m256i edges) {
            return _mm256_sign_epi16(times(_mm256_abs_epi16(edges)), edges);
        });
    else
        SharpenByTable(rows, table, out, n, i);
    return i;
}

void Sharpen(Plane<const Byte> source, Plane<Byte> out, const std::int32_t* table)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const Gain gain = Gain::Of(table);
    std::size_t done = 0;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        const Byte* const rows[3] = {source.Row(y) + 1, source.Row(y + 1) + 1,
                                     source.Row(y + 2) + 1};
        done = SharpenStart(rows, table, gain, out.Row(y), n);
    }
    // The columns that are left.
    source.fPixels += done;
    out.fPixels += done;
    out.fWidth -= static_cast<std::int32_t>(done);
    PlainKernels().sharpen(source, out, table);
}

void NeighbourMeanRow(const Byte* const rows[3], std::int32_t weight, Byte* out, std::size_t n)
{
    std::size_t i = 0;
    if (weight >= 0 && weight <= 12) {
        // Sums are at most 255 * (weight + 4), for which the rounded-up reciprocal divides exactly.
        const std::int32_t divisor = weight + 4;
        const __m256i factor =
            _mm256_set1_epi16(static_cast<short>((65536 + divisor - 1) / divisor));
        const __m256i weights = _mm256_set1_epi16(static_cast<short>(weight));
        const auto mean = [&](std::size_t at) {
            const __m256i sum = _mm256_add_epi16(_mm256_mullo_epi16(Load16(rows[1] + at), weights),
                                                 Around(rows, at));
            return _mm256_mulhi_epu16(sum, factor);
        };
        for (; i + kVector <= n; i += kVector)
            Store(out + i, Packed(mean(i), mean(i + 16)));
    }
    const Byte* const rest[3] = {rows[0] + i, rows[1] + i, rows[2] + i};
    PlainKernels().neighbourMeanRow(rest, weight, out + i, n - i);
}

} // namespace

void AddNeighbours(KernelTable& table)
{
    table.embossRow = EmbossRow;
    table.sharpen = Sharpen;
    table.neighbourMeanRow = NeighbourMeanRow;
}

} // namespace Kesto::Kernels::Avx2
