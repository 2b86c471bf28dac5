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

// The extremes of the columns of one row of boxes, of three rows of bytes.
template <class Pick>
struct ColumnRow {
    // Those of 32 columns, which there have to be.
    __m256i At(std::size_t i) const
    {
        FetchAhead(fEntering, i);
        const __m256i below = Pick()(Load(fEntering + i), Load(fBelow + i));
        Store(fNewBelow + i, below);
        return Pick()(below, Load(fBlock + i));
    }

    // All of them, to `out`, which is returned.
    const Byte* All(Byte* out, std::size_t columns) const
    {
        std::size_t i = 0;
        for (; i + kVector <= columns; i += kVector)
            Store(out + i, At(i));
        for (; i < columns; ++i) {
            fNewBelow[i] = Pick()(fEntering[i], fBelow[i]);
            out[i] = Pick()(fNewBelow[i], fBlock[i]);
        }
        return out;
    }

    const Byte* fEntering; // the lowest row of the boxes
    const Byte* fBelow;    // the extremes of the rows below the block so far
    const Byte* fBlock;    // those of the rows in the block
    Byte* fNewBelow;       // will be those with the entering row
};

// One row of boxes after the other, at three operations a pixel for any height: a block of rows as high as the box gets its
// extremes from each row to the block's end; the rows below it add theirs as they come.
template <class Pick>
class CColumns {
public:
    CColumns(Plane<const Byte> source, std::size_t columns, std::int32_t height, Byte* scratch)
        : fSource(source), fColumns(columns), fHeight(height), fStride(static_cast<std::ptrdiff_t>(columns + kSlack)),
          fToEnd(scratch), fBelow(scratch + fStride * height), fResult(fBelow + fStride)
    {
    }

    // Rows come in order from 0.
    ColumnRow<Pick> Row(std::int32_t y)
    {
        const std::int32_t place = y % fHeight;
        const Byte* const block = fToEnd + fStride * place;
        if (place == 0) {
            StartBlock(y);
            return {block, block, block, fBelow}; // complete
        }
        const Byte* const entering = fSource.Row(y + fHeight - 1);
        return {entering, place == 1 ? entering : fBelow, block, fBelow};
    }

    // The same as a row of bytes.
    const Byte* BytesOfRow(std::int32_t y) { return Row(y).All(fResult, fColumns); }

private:
    void StartBlock(std::int32_t y)
    {
        const Byte* const source = fSource.Row(y + fHeight - 1);
        Byte* const toEnd = fToEnd + fStride * (fHeight - 1);
        const auto vector = [&](std::size_t i) {
            const Byte* from = source + i;
            Byte* to = toEnd + i;
            __m256i extreme = Load(from);
            Store(to, extreme);
            for (std::int32_t rows = fHeight - 1; rows > 0; --rows) {
                extreme = Pick()(extreme, Load(from -= fSource.fRowBytes));
                Store(to -= fStride, extreme);
            }
        };
        std::size_t i = 0;
        for (; i + kVector <= fColumns; i += kVector)
            vector(i);
        if (i > 0 && i < fColumns) { // the last one overlaps the one before
            vector(fColumns - kVector);
            i = fColumns;
        }
        for (; i < fColumns; ++i) {
            Byte extreme = toEnd[i] = source[i];
            for (std::ptrdiff_t row = 1; row < fHeight; ++row)
                (toEnd + i)[-row * fStride] = extreme = Pick()(extreme, (source + i)[-row * fSource.fRowBytes]);
        }
    }

    Plane<const Byte> fSource;
    std::size_t fColumns;
    std::int32_t fHeight;
    std::ptrdiff_t fStride;
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

// 32 bytes from the k-th on of two vectors.
template <int k>
__m256i Shifted(__m256i low, __m256i high)
{
    const __m256i middle = _mm256_permute2x128_si256(low, high, 0x21);
    if constexpr (k < 16)
        return _mm256_alignr_epi8(middle, low, k);
    else
        return _mm256_alignr_epi8(high, middle, k - 16);
}

// The same as Widen in registers.
template <class Pick, int part, int width>
__m256i Widened(__m256i low, __m256i high)
{
    constexpr int last = width - part, middle = part < last ? part : last;
    if constexpr (last == 0)
        return low;
    else
        return Pick()(Pick()(low, Shifted<middle>(low, high)), Shifted<last>(low, high));
}

// Extremes of boxes up to nine pixels wide, without a stop in memory between the columns and the row: whole vectors from
// pixel `i` to the row's end, at least two.
template <class Pick, int width>
void NarrowVectors(ColumnRow<Pick> columns, Byte* out, std::size_t i, std::size_t n)
{
    static_assert(width >= 1 && width <= 9);
    constexpr int part = (width + 2) / 3;
    const auto partsOf = [](__m256i low, __m256i high) { return Widened<Pick, 1, part>(low, high); };
    __m256i next = columns.At(i + kVector);
    __m256i parts = partsOf(columns.At(i), next);
    const auto take = [&](__m256i newest) {
        const __m256i nextParts = partsOf(next, newest);
        Store(out + i, Widened<Pick, part, width>(parts, nextParts));
        parts = nextParts;
        next = newest;
        i += kVector;
    };
    while (i + 2 * kVector < n)
        take(columns.At(i + 2 * kVector));
    // Behind the row's end there are width - 1 columns, the last of these 32.
    const __m256i lastColumns = columns.At(n + width - 1 - kVector);
    const __m256i behind = Shifted<33 - width>(lastColumns, lastColumns);
    take(behind);
    take(behind);
}

// A row of three vectors or more.
template <class Pick, int width>
void NarrowRow(ColumnRow<Pick> columns, Byte* out, std::size_t n)
{
    const std::size_t odd = n % kVector;
    if (odd > 0) { // the first vector overlaps the others
        const __m256i first = columns.At(0), second = columns.At(kVector);
        constexpr int part = (width + 2) / 3;
        const __m256i parts = Widened<Pick, 1, part>(first, second);
        const __m256i nextParts = Widened<Pick, 1, part>(second, columns.At(2 * kVector));
        Store(out, Widened<Pick, part, width>(parts, nextParts));
    }
    NarrowVectors<Pick, width>(columns, out, odd, n);
}

template <class Pick>
auto NarrowRowFor(std::size_t width)
{
    using Function = void (*)(ColumnRow<Pick>, Byte*, std::size_t);
    constexpr Function kRows[] = {nullptr,
                                  NarrowRow<Pick, 1>,
                                  NarrowRow<Pick, 2>,
                                  NarrowRow<Pick, 3>,
                                  NarrowRow<Pick, 4>,
                                  NarrowRow<Pick, 5>,
                                  NarrowRow<Pick, 6>,
                                  NarrowRow<Pick, 7>,
                                  NarrowRow<Pick, 8>,
                                  NarrowRow<Pick, 9>};
    return width < sizeof kRows / sizeof *kRows ? kRows[width] : nullptr;
}

template <class Pick>
void BoxExtreme(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t count = n + width - 1;
    Byte* rows = static_cast<Byte*>(static_cast<void*>(scratch));
    CColumns<Pick> columns(source, count, shape.fHeight, rows);
    Byte* rest = rows + (count + kSlack) * (static_cast<std::size_t>(shape.fHeight) + 2);
    const auto narrowRow = n >= 3 * kVector ? NarrowRowFor<Pick>(width) : nullptr;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        if (narrowRow != nullptr) {
            narrowRow(columns.Row(y), out.Row(y), n);
            continue;
        }
        AlongRow<Pick>(columns.BytesOfRow(y), rest, n, width);
        std::memcpy(out.Row(y), rest, n);
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
        AlongRow<Larger>(largest.BytesOfRow(y), large, n, width);
        AlongRow<Smaller>(smallest.BytesOfRow(y), small, n, width);
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
    for (; i + 16 <= n; i += 16) {
        FetchAhead(entering, i);
        Store(sums + i, _mm256_add_epi16(Load(sums + i), _mm256_sub_epi16(Load16(entering + i), Load16(leaving + i))));
    }
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
