// Means of upright boxes, from running sums of their columns.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// Division of 16-bit sums by a constant: the high half of a product, shifted. Exact for all sums of
// a box.
struct Divider {
    // Returns false for areas that it cannot serve.
    bool Set(std::uint32_t area, std::uint32_t half)
    {
        const std::uint32_t largest = 255 * area + half;
        if (area < 2 || largest > 65535)
            return false;
        std::uint32_t shift = 0;
        while ((std::uint32_t{2} << shift) < area)
            ++shift;
        const std::uint64_t unit = std::uint64_t{65536} << shift;
        const std::uint64_t factor = (unit + area - 1) / area;
        if ((factor * area - unit) * largest >= unit)
            return false;
        fFactor = _mm256_set1_epi16(static_cast<short>(factor));
        fShift = _mm_cvtsi32_si128(static_cast<int>(shift));
        fHalf = _mm256_set1_epi16(static_cast<short>(half));
        return true;
    }

    __m256i operator()(__m256i sums) const
    {
        return _mm256_srl_epi16(_mm256_mulhi_epu16(_mm256_add_epi16(sums, fHalf), fFactor), fShift);
    }

    __m256i fFactor, fHalf;
    __m128i fShift;
};

using Sum = std::uint16_t;

// sums[i] += entering[i] - leaving[i]; `leaving` may be null.
void MoveDown(Sum* sums, const Byte* entering, const Byte* leaving, std::size_t n)
{
    std::size_t i = 0;
    if (leaving == nullptr) {
        for (; i + 16 <= n; i += 16)
            Store(sums + i, _mm256_add_epi16(Load(sums + i), Load16(entering + i)));
        for (; i < n; ++i)
            sums[i] = static_cast<Sum>(sums[i] + entering[i]);
        return;
    }
    for (; i + 16 <= n; i += 16) {
        FetchAhead(entering, i);
        Store(sums + i, _mm256_add_epi16(Load(sums + i), _mm256_sub_epi16(Load16(entering + i),
                                                                          Load16(leaving + i))));
    }
    for (; i < n; ++i)
        sums[i] = static_cast<Sum>(sums[i] + entering[i] - leaving[i]);
}

// Sixteen sums over `width` columns, from those over a third of it and the columns that are left.
__m256i WindowSum(const Sum* columns, const Sum* parts, std::size_t part, std::size_t width)
{
    __m256i sum =
        _mm256_add_epi16(_mm256_add_epi16(Load(parts), Load(parts + part)), Load(parts + 2 * part));
    for (std::size_t i = 3 * part; i < width; ++i)
        sum = _mm256_add_epi16(sum, Load(columns + i));
    return sum;
}

// Sums over `width` columns to `out`, with room for a whole vector.
void SumAlong(const Sum* columns, Sum* out, std::size_t n, std::size_t width)
{
    if (width < 3) {
        for (std::size_t i = 0; i < n; i += 16)
            Store(out + i, width == 1 ? Load(columns + i)
                                      : _mm256_add_epi16(Load(columns + i), Load(columns + i + 1)));
        return;
    }
    const std::size_t part = width / 3;
    const Sum* parts = columns;
    if (part > 1) {
        SumAlong(columns, out, n + width - part, part);
        parts = out;
    }
    for (std::size_t i = 0; i < n; i += 16)
        Store(out + i, WindowSum(columns + i, parts + i, part, width));
}

void MeansOfRow(const Sum* columns, Sum* parts, Byte* out, std::size_t n, std::size_t width,
                const Divider& divider)
{
    const std::size_t part = width / 3;
    if (width >= 3)
        SumAlong(columns, parts, n + width - part, part);
    else
        SumAlong(columns, parts, n, width);
    const auto mean = [&](std::size_t i) {
        return divider(width >= 3 ? WindowSum(columns + i, parts + i, part, width)
                                  : Load(parts + i));
    };
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector)
        Store(out + i, Packed(mean(i), mean(i + 16)));
    if (i < n)
        StoreFirst(out + i, Packed(mean(i), mean(i + 16)), n - i);
}

// The sum of kCount vectors of words, each shifted by kStep more words than the one before, from
// kFirst words on.
template <int kFirst, int kCount, int kStep>
__m256i ShiftedSum(__m256i low, __m256i high)
{
    const __m256i sum = Shifted<2 * kFirst>(low, high);
    if constexpr (kCount == 1)
        return sum;
    else
        return _mm256_add_epi16(sum, ShiftedSum<kFirst + kStep, kCount - 1, kStep>(low, high));
}

// The same for windows of up to nine columns, each read once.
template <int width>
void NarrowMeansOfRow(const Sum* columns, Byte* out, std::size_t n, const Divider& divider)
{
    static_assert(width >= 3 && width <= 9);
    constexpr int part = width / 3, left = width % 3;
    __m256i here = Load(columns), next = Load(columns + 16);
    __m256i parts = ShiftedSum<0, part, 1>(here, next);
    const auto sixteenMeans = [&](std::size_t i) {
        const __m256i newest = Load(columns + i + 32);
        const __m256i nextParts = ShiftedSum<0, part, 1>(next, newest);
        __m256i sum = ShiftedSum<0, 3, part>(parts, nextParts);
        if constexpr (left > 0)
            sum = _mm256_add_epi16(sum, ShiftedSum<3 * part, left, 1>(here, next));
        here = next;
        next = newest;
        parts = nextParts;
        return divider(sum);
    };
    const auto vector = [&](std::size_t i) {
        const __m256i low = sixteenMeans(i);
        return Packed(low, sixteenMeans(i + 16));
    };
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector)
        Store(out + i, vector(i));
    if (i < n)
        StoreFirst(out + i, vector(i), n - i);
}

using MeansOfRowFunction = void (*)(const Sum* columns, Byte* out, std::size_t n,
                                    const Divider& divider);

MeansOfRowFunction NarrowMeansFor(std::size_t width)
{
    constexpr MeansOfRowFunction kFunctions[] = {
        NarrowMeansOfRow<3>, NarrowMeansOfRow<4>, NarrowMeansOfRow<5>, NarrowMeansOfRow<6>,
        NarrowMeansOfRow<7>, NarrowMeansOfRow<8>, NarrowMeansOfRow<9>};
    return width >= 3 && width <= 9 ? kFunctions[width - 3] : nullptr;
}

void BoxMean(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, bool round,
             std::byte* scratch)
{
    Divider divider;
    const std::uint32_t area = static_cast<std::uint32_t>(shape.Area());
    // Sums of 256 bytes fit in 16 bits; larger windows, and those whose area the divider can't
    // take, go the plain way.
    if (shape.fLean != 0 || shape.fWidth > 256 || shape.fHeight > 256 ||
        !divider.Set(area, round ? area / 2 : 0))
        return PlainKernels().boxMean(source, out, shape, round, scratch);
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t columns = n + width - 1;
    Sum* sums = static_cast<Sum*>(static_cast<void*>(Aligned(scratch)));
    Sum* parts = sums + BoxShape::ScratchRow(columns);
    std::memset(sums, 0, 2 * BoxShape::ScratchRow(columns) * sizeof(Sum));
    const MeansOfRowFunction narrow = NarrowMeansFor(width);
    for (std::int32_t row = 0; row + 1 < shape.fHeight; ++row)
        MoveDown(sums, source.Row(row), nullptr, columns);
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        MoveDown(sums, source.Row(y + shape.fHeight - 1), y > 0 ? source.Row(y - 1) : nullptr,
                 columns);
        if (narrow != nullptr)
            narrow(sums, out.Row(y), n, divider);
        else
            MeansOfRow(sums, parts, out.Row(y), n, width, divider);
    }
}

} // namespace

void AddBoxMeans(KernelTable& table)
{
    table.boxMean = BoxMean;
}

} // namespace Kesto::Kernels::Avx2
