// The largest, the smallest, and the range of the pixels in upright boxes of any size.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

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

// One row of boxes after the other, at three operations a pixel for any height: a block of rows as
// high as the box gets its extremes from each row to the block's end; the rows below it add theirs
// as they come.
template <class Pick>
class CColumns {
public:
    CColumns(Plane<const Byte> source, std::size_t columns, std::int32_t height, Byte* scratch)
        : fSource(source), fColumns(columns), fHeight(height),
          fStride(static_cast<std::ptrdiff_t>(BoxShape::ScratchRow(columns))), fToEnd(scratch),
          fBelow(scratch + fStride * height), fResult(fBelow + fStride)
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
        std::size_t i = 0;
        for (; i + 2 * kVector <= fColumns; i += 2 * kVector)
            StartColumns<2>(source + i, toEnd + i);
        if (fColumns >= 2 * kVector && i < fColumns) { // the last ones overlap those before
            i = fColumns - 2 * kVector;
            StartColumns<2>(source + i, toEnd + i);
            return;
        }
        for (; i < fColumns; ++i) {
            Byte extreme = toEnd[i] = source[i];
            for (std::ptrdiff_t row = 1; row < fHeight; ++row)
                (toEnd + i)[-row * fStride] = extreme =
                    Pick()(extreme, (source + i)[-row * fSource.fRowBytes]);
        }
    }

    // A column of vectors from its last row upwards.
    template <std::size_t kCount>
    void StartColumns(const Byte* from, Byte* to) const
    {
        __m256i extremes[kCount];
        for (std::size_t k = 0; k < kCount; ++k)
            Store(to + k * kVector, extremes[k] = Load(from + k * kVector));
        for (std::int32_t rows = fHeight - 1; rows > 0; --rows) {
            from -= fSource.fRowBytes;
            to -= fStride;
            for (std::size_t k = 0; k < kCount; ++k)
                Store(to + k * kVector,
                      extremes[k] = Pick()(extremes[k], Load(from + k * kVector)));
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

// The extremes of windows of `width` pixels from those of windows of `part` pixels, of which three
// cover one. `out` may be `in`; both go on for a whole vector.
template <class Pick>
void Widen(const Byte* in, Byte* out, std::size_t n, std::size_t part, std::size_t width)
{
    const std::size_t last = width - part;
    const std::size_t middle = part < last ? part : last;
    for (std::size_t i = 0; i < n; i += kVector)
        Store(out + i, Pick()(Pick()(Load(in + i), Load(in + i + middle)), Load(in + i + last)));
}

// The extremes of windows of `width` pixels along a row: windows grow threefold. The result is put
// into `out`, which has room for a whole vector more and may be `in`.
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

// Extremes of boxes up to nine pixels wide, without a stop in memory between the columns and the
// row: whole vectors from pixel `i` to the row's end, at least two.
template <class Pick, int width>
void NarrowVectors(ColumnRow<Pick> columns, Byte* out, std::size_t i, std::size_t n)
{
    static_assert(width >= 1 && width <= 9);
    constexpr int part = (width + 2) / 3;
    const auto partsOf = [](__m256i low, __m256i high) {
        return Widened<Pick, 1, part>(low, high);
    };
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

// Narrow boxes keep their columns in registers, which a row of a few vectors doesn't repay. Others
// are worked on in scratch, since AlongRow writes past the row's end.
template <class Pick>
void BoxExtreme(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t count = n + width - 1;
    Byte* rows = Aligned(scratch);
    CColumns<Pick> columns(source, count, shape.fHeight, rows);
    Byte* rest = rows + BoxShape::ScratchRow(count) * (static_cast<std::size_t>(shape.fHeight) + 2);
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

// Both extremes at once, while the source's rows are in the near caches.
void BoxRange(Plane<const Byte> source, Plane<Byte> out, BoxShape shape, std::byte* scratch)
{
    const std::size_t n = static_cast<std::size_t>(out.fWidth);
    const std::size_t width = static_cast<std::size_t>(shape.fWidth);
    const std::size_t columns = n + width - 1;
    const std::size_t stride = BoxShape::ScratchRow(columns);
    const std::size_t rowsEach = static_cast<std::size_t>(shape.fHeight) + 2;
    Byte* rows = Aligned(scratch);
    CColumns<Larger> largest(source, columns, shape.fHeight, rows);
    CColumns<Smaller> smallest(source, columns, shape.fHeight, rows + stride * rowsEach);
    Byte* large = rows + 2 * stride * rowsEach;
    Byte* small = large + stride;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        AlongRow<Larger>(largest.BytesOfRow(y), large, n, width);
        AlongRow<Smaller>(smallest.BytesOfRow(y), small, n, width);
        const Byte *a = large, *b = small;
        MapVectors(
            out.Row(y), n, [](__m256i high, __m256i low) { return _mm256_sub_epi8(high, low); }, a,
            b);
    }
}

} // namespace

void AddBoxExtremes(KernelTable& table)
{
    table.boxMaximum = BoxExtreme<Larger>;
    table.boxMinimum = BoxExtreme<Smaller>;
    table.boxRange = BoxRange;
}

} // namespace Kesto::Kernels::Avx2
