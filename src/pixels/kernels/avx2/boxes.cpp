#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// Room behind a scratch row for loops that run on to a whole vector; more than both kinds of row need.
constexpr std::size_t kSlack = 64;

struct Larger {
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_max_epu8(a, b); }
    Byte operator()(Byte a, Byte b) const { return a > b ? a : b; }
};
struct Smaller {
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_min_epu8(a, b); }
    Byte operator()(Byte a, Byte b) const { return a < b ? a : b; }
};

// The extremes of the columns of one row of boxes after the other, at three operations a pixel for any height: a block of
// rows as high as the box gets its extremes from each row to the block's end; the rows below it add theirs as they come.
template <class Pick>
class CColumns {
public:
    CColumns(Plane<const Byte> source, std::size_t columns, std::int32_t height, Byte* scratch)
        : fSource(source), fColumns(columns), fHeight(height), fStride(columns + kSlack), fToEnd(scratch),
          fBelow(scratch + fStride * static_cast<std::size_t>(height)), fResult(fBelow + fStride)
    {
    }

    // Rows come in order from 0.
    const Byte* Row(std::int32_t y)
    {
        const std::int32_t place = y % fHeight;
        if (place == 0) {
            StartBlock(y);
            return ToEnd(0);
        }
        const Byte* entering = fSource.Row(y + fHeight - 1);
        Enter(entering, place == 1 ? entering : fBelow, ToEnd(place));
        return fResult;
    }

private:
    Byte* ToEnd(std::int32_t place) { return fToEnd + fStride * static_cast<std::size_t>(place); }

    void StartBlock(std::int32_t y)
    {
        std::size_t i = 0;
        for (; i + kVector <= fColumns; i += kVector) {
            __m256i extreme = Load(fSource.Row(y + fHeight - 1) + i);
            Store(ToEnd(fHeight - 1) + i, extreme);
            for (std::int32_t place = fHeight - 2; place >= 0; --place) {
                extreme = Pick()(extreme, Load(fSource.Row(y + place) + i));
                Store(ToEnd(place) + i, extreme);
            }
        }
        for (; i < fColumns; ++i) {
            Byte extreme = ToEnd(fHeight - 1)[i] = fSource.Row(y + fHeight - 1)[i];
            for (std::int32_t place = fHeight - 2; place >= 0; --place)
                ToEnd(place)[i] = extreme = Pick()(extreme, fSource.Row(y + place)[i]);
        }
    }

    void Enter(const Byte* entering, const Byte* below, const Byte* toEnd)
    {
        std::size_t i = 0;
        for (; i + kVector <= fColumns; i += kVector) {
            const __m256i extreme = Pick()(Load(entering + i), Load(below + i));
            Store(fBelow + i, extreme);
            Store(fResult + i, Pick()(extreme, Load(toEnd + i)));
        }
        for (; i < fColumns; ++i) {
            fBelow[i] = Pick()(entering[i], below[i]);
            fResult[i] = Pick()(fBelow[i], toEnd[i]);
        }
    }

    Plane<const Byte> fSource;
    std::size_t fColumns;
    std::int32_t fHeight;
    std::size_t fStride;
    Byte* fToEnd; // a block of rows
    Byte* fBelow;
    Byte* fResult;
};

// The extremes of windows of `width` pixels from those of windows of `part` pixels, of which three cover one. `out` may be
// `in`; both go on for a whole vector.
template <class Pick>
void Widen(const Byte* in, Byte* out, std::size_t n, std::size_t part, std::size_t width)
{
    const std::size_t last = width - part;
    const std::size_t middle = part < last ? part : last;
    for (std::size_t i = 0; i < n; i += kVector)
        Store(out + i, Pick()(Pick()(Load(in + i), Load(in + i + middle)), Load(in + i + last)));
}

// The extremes of windows of `width` pixels along a row: windows grow threefold. The result goes to `out`, which goes on
// for a whole vector and may be `in`.
template <class Pick>
void AlongRow(const Byte* in, Byte* out, std::size_t n, std::size_t width)
{
    std::size_t part = 1;
    if (width > 3) {
        part = (width + 2) / 3;
        AlongRow<Pick>(in, out, n + width - part, part);
        in = out;
    }
    Widen<Pick>(in, out, n, part, width);
}

template <class Pick>
void BoxExtremeOfStrip(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t columns = n + width - 1;
    Byte* rows = static_cast<Byte*>(static_cast<void*>(scratch));
    CColumns<Pick> extremes(source, columns, shape.fHeight, rows);
    Byte* result = rows + (columns + kSlack) * (static_cast<std::size_t>(shape.fHeight) + 2);
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        AlongRow<Pick>(extremes.Row(y), result, n, width);
        std::memcpy(out.Row(y), result, n);
    }
}

// Strips of a plane, narrow enough that a block of rows stays in the nearest cache.
template <class Pick>
void BoxExtreme(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    constexpr std::int32_t kStrip = 1024;
    const std::int32_t strip = shape.fWidth < kStrip ? kStrip : out.fWidth;
    for (std::int32_t x = 0; x < out.fWidth; x += strip) {
        const std::int32_t width = out.fWidth - x < strip ? out.fWidth - x : strip;
        BoxExtremeOfStrip<Pick>({source.fPixels + x, source.fRowBytes, source.fWidth - x, source.fHeight},
                                {out.fPixels + x, out.fRowBytes, width, out.fHeight}, shape, scratch);
    }
}

void BoxRange(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t columns = n + width - 1;
    const std::size_t stride = columns + kSlack;
    const std::size_t rowsEach = static_cast<std::size_t>(shape.fHeight) + 2;
    Byte* rows = static_cast<Byte*>(static_cast<void*>(scratch));
    CColumns<Larger> largest(source, columns, shape.fHeight, rows);
    CColumns<Smaller> smallest(source, columns, shape.fHeight, rows + stride * rowsEach);
    Byte* large = rows + 2 * stride * rowsEach;
    Byte* small = large + stride;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        AlongRow<Larger>(largest.Row(y), large, n, width);
        AlongRow<Smaller>(smallest.Row(y), small, n, width);
        const Byte *a = large, *b = small;
        MapVectors(
            out.Row(y), n, [](__m256i high, __m256i low) { return _mm256_sub_epi8(high, low); }, a, b);
    }
}

// Division of 16-bit sums by a constant: the high half of a product, shifted. Exact for all sums of a box.
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
    for (; i + 16 <= n; i += 16)
        Store(sums + i, _mm256_add_epi16(Load(sums + i), _mm256_sub_epi16(Load16(entering + i), Load16(leaving + i))));
    for (; i < n; ++i)
        sums[i] = static_cast<Sum>(sums[i] + entering[i] - leaving[i]);
}

// Sixteen sums over `width` columns, from those over a third of it and the columns that are left.
__m256i WindowSum(const Sum* columns, const Sum* parts, std::size_t part, std::size_t width)
{
    __m256i sum = _mm256_add_epi16(_mm256_add_epi16(Load(parts), Load(parts + part)), Load(parts + 2 * part));
    for (std::size_t i = 3 * part; i < width; ++i)
        sum = _mm256_add_epi16(sum, Load(columns + i));
    return sum;
}

// Sums over `width` columns to `out`, with room for a whole vector.
void SumAlong(const Sum* columns, Sum* out, std::size_t n, std::size_t width)
{
    if (width < 3) {
        for (std::size_t i = 0; i < n; i += 16)
            Store(out + i, width == 1 ? Load(columns + i) : _mm256_add_epi16(Load(columns + i), Load(columns + i + 1)));
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

void MeansOfRow(const Sum* columns, Sum* parts, Byte* out, std::size_t n, std::size_t width, const Divider& divider)
{
    const std::size_t part = width / 3;
    if (width >= 3)
        SumAlong(columns, parts, n + width - part, part);
    else
        SumAlong(columns, parts, n, width);
    const auto mean = [&](std::size_t i) {
        return divider(width >= 3 ? WindowSum(columns + i, parts + i, part, width) : Load(parts + i));
    };
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector)
        Store(out + i, Packed(mean(i), mean(i + 16)));
    if (i == n)
        return;
    alignas(kVector) Byte last[kVector];
    Store(last, Packed(mean(i), mean(i + 16)));
    std::memcpy(out + i, last, n - i);
}

void BoxMean(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, bool round, std::byte* scratch)
{
    Divider divider;
    const std::uint32_t area = static_cast<std::uint32_t>(shape.Area());
    if (shape.fLean != 0 || shape.fWidth > 256 || shape.fHeight > 256 || !divider.Set(area, round ? area / 2 : 0))
        return PlainKernels().boxMean(source, out, shape, round, scratch);
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t columns = n + width - 1;
    Sum* sums = static_cast<Sum*>(static_cast<void*>(scratch));
    Sum* parts = sums + columns + kSlack;
    std::memset(sums, 0, 2 * (columns + kSlack) * sizeof(Sum));
    for (std::int32_t row = 0; row + 1 < shape.fHeight; ++row)
        MoveDown(sums, source.Row(row), nullptr, columns);
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        MoveDown(sums, source.Row(y + shape.fHeight - 1), y > 0 ? source.Row(y - 1) : nullptr, columns);
        MeansOfRow(sums, parts, out.Row(y), n, width, divider);
    }
}

} // namespace

void AddBoxes(KernelTable& table)
{
    table.boxMean = BoxMean;
    table.boxMaximum = BoxExtreme<Larger>;
    table.boxMinimum = BoxExtreme<Smaller>;
    table.boxRange = BoxRange;
}

} // namespace Kesto::Kernels::Avx2
