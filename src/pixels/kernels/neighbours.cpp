#include "pixels/kernels/neighbours.h"

#include "foundation/base/block.h"
#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/neighbours.h"
#include "pixels/kernels/view_access.h"

#include <array>

namespace Kesto::Kernels {

namespace {

// The target's extent, as far as the source reaches around it.
Extent InnerExtent(const CPixView& out, const CPixView& source)
{
    if (!HasPlanes(out, 8) || !HasPlanes(source, 8))
        return {};
    const Extent extent{std::min(out.width, source.width - 2),
                        std::min(out.height, source.height - 2),
                        std::min(out.planeCount, source.planeCount)};
    return extent.fWidth > 0 && extent.fHeight > 0 ? extent : Extent{};
}

// The three source rows around the target's row y, each at the target's first column.
std::array<const std::uint8_t*, 3> RowsAround(const CPixView& source, std::int32_t plane,
                                              std::int32_t y)
{
    return {RowOf<std::uint8_t>(source, plane, y) + 1,
            RowOf<std::uint8_t>(source, plane, y + 1) + 1,
            RowOf<std::uint8_t>(source, plane, y + 2) + 1};
}

// Steps to the eight neighbours, clockwise from the top.
constexpr std::array<PixelPoint, 8> kNeighbours = {
    {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}}};

// Three rows of table values, each computed once while the kernel runs down the plane.
template <class Value>
class CTableRows {
public:
    CTableRows(std::span<const std::int32_t, 256> table, std::int32_t width)
        : fWidth(static_cast<std::size_t>(width))
    {
        std::transform(table.begin(), table.end(), fTable.begin(),
                       [](std::int32_t value) { return static_cast<Value>(value); });
        fBlock.SetSize(3 * fWidth * sizeof(Value));
    }

    // Takes the source's row `y`, replacing the one three rows above.
    void Take(const std::uint8_t* pixels, std::int32_t y)
    {
        Value* row = Row(y);
        for (std::size_t x = 0; x < fWidth; ++x)
            row[x] = fTable[pixels[x]];
    }

    Value* Row(std::int32_t y)
    {
        return static_cast<Value*>(static_cast<void*>(fBlock.Data())) +
               static_cast<std::size_t>(y % 3) * fWidth;
    }

private:
    std::array<Value, 256> fTable;
    std::size_t fWidth;
    CMemoryBlock fBlock;
};

struct EmbossLight {
    std::span<const std::int32_t, 256> fTable;
    std::int32_t fDirection;
    std::int32_t fConstant; // where there is no base

    // True if all sums stay in 16 bits.
    bool IsFaint() const
    {
        const auto isFaint = [](std::int32_t value) {
            return value >= -kEmbossLimit && value <= kEmbossLimit;
        };
        return isFaint(fConstant) && std::all_of(fTable.begin(), fTable.end(), isFaint);
    }
};

// base(plane, y) gives the row of base pixels, or null for the constant; `embossRow` takes rows of
// Value.
template <class Value, class Base, class Row>
void EmbossPlanes(const CPixView& out, const CPixView& source, const Extent& extent,
                  const EmbossLight& light, const Base& base, const Row& embossRow)
{
    CTableRows<Value> rows(light.fTable, extent.fWidth + 2);
    const auto neighbour = [&](std::int32_t y, std::int32_t turn) -> const Value* {
        const PixelPoint step =
            kNeighbours[static_cast<std::size_t>((light.fDirection & 7) + turn) % 8];
        return rows.Row(y + 1 + step.y) + 1 + step.x;
    };
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane) {
        rows.Take(RowOf<std::uint8_t>(source, plane, 0), 0);
        rows.Take(RowOf<std::uint8_t>(source, plane, 1), 1);
        for (std::int32_t y = 0; y < extent.fHeight; ++y) {
            rows.Take(RowOf<std::uint8_t>(source, plane, y + 2), y + 2);
            const Value* const near[3] = {neighbour(y, 7), neighbour(y, 0), neighbour(y, 1)};
            const Value* const far[3] = {neighbour(y, 3), neighbour(y, 4), neighbour(y, 5)};
            embossRow(near, far, base(plane, y), light.fConstant,
                      RowOf<std::uint8_t>(out, plane, y), static_cast<std::size_t>(extent.fWidth));
        }
    }
}

template <class Base>
void Emboss(const CPixView& out, const CPixView& source, const Extent& extent,
            const EmbossLight& light, const Base& base)
{
    if (light.IsFaint())
        EmbossPlanes<std::int16_t>(out, source, extent, light, base, ActiveKernels().embossRow);
    else
        EmbossPlanes<std::int32_t>(out, source, extent, light, base,
                                   Plain::EmbossRow<std::int32_t>);
}

} // namespace

void Emboss(const CPixView& out, const CPixView& source, std::span<const std::int32_t, 256> table,
            std::int32_t direction, std::int32_t base)
{
    const auto none = [](std::int32_t, std::int32_t) -> const std::uint8_t* { return nullptr; };
    Emboss(out, source, InnerExtent(out, source), {table, direction, base}, none);
}

void Emboss(const CPixView& out, const CPixView& source, std::span<const std::int32_t, 256> table,
            std::int32_t direction, const CPixView& base)
{
    Extent extent = InnerExtent(out, source);
    const Extent shared = CommonExtent(8, {&out, &base});
    extent = {std::min(extent.fWidth, shared.fWidth), std::min(extent.fHeight, shared.fHeight),
              std::min(extent.fPlanes, shared.fPlanes)};
    const auto row = [&](std::int32_t plane, std::int32_t y) -> const std::uint8_t* {
        return RowOf<std::uint8_t>(base, plane, y);
    };
    Emboss(out, source, extent, {table, direction, 0}, row);
}

void Sharpen(const CPixView& out, const CPixView& source,
             std::span<const std::int32_t, kSharpenLevels> table)
{
    const Extent extent = InnerExtent(out, source);
    const std::int32_t* middle = table.data() + kSharpenLevels / 2;
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane) {
        Plane<std::uint8_t> target = PlaneOf<std::uint8_t>(out, plane);
        target.fWidth = extent.fWidth;
        target.fHeight = extent.fHeight;
        ActiveKernels().sharpen(PlaneOf<std::uint8_t>(source, plane), target, middle);
    }
}

void NeighbourMean(const CPixView& out, const CPixView& source, std::int32_t weight)
{
    if (weight == -4)
        return;
    const auto mean = ActiveKernels().neighbourMeanRow;
    ForEachRow(InnerExtent(out, source), [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        mean(RowsAround(source, plane, y).data(), weight, RowOf<std::uint8_t>(out, plane, y), n);
    });
}

} // namespace Kesto::Kernels
