#include "pixels/kernels/colour.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/colour.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

void HueToRGB(const CPixView& out, const CPixView& hsv)
{
    WithPixelType(out.pixelBits, [&]<class T>() {
        Extent extent = CommonExtent(out.pixelBits, {&out, &hsv});
        if (extent.fPlanes < 3)
            return;
        extent.fPlanes = 1; // the row function takes all three at once
        auto convert = Plain::HueRowToRGB<T>;
        if constexpr (sizeof(T) == 1)
            convert = ActiveKernels().hueToRGB;
        ForEachRow(extent, [&](std::int32_t, std::int32_t y, std::size_t n) {
            const T* const sources[3] = {RowOf<T>(hsv, 0, y), RowOf<T>(hsv, 1, y),
                                         RowOf<T>(hsv, 2, y)};
            T* const targets[3] = {RowOf<T>(out, 0, y), RowOf<T>(out, 1, y), RowOf<T>(out, 2, y)};
            convert(sources, targets, n);
        });
    });
}

namespace {

using MergeRow = void (*)(const MergedRows& source, std::uint32_t* out, std::size_t n);

// What a 32-bit view and a view of planes have in common; as 0 bytes when that is nothing.
std::size_t PackedBytes(const CPixView& packed, const CPixView& planes)
{
    const std::int32_t width = std::min(packed.width, planes.width);
    const std::int32_t height = std::min(packed.height, planes.height);
    if (!HasPlanes(packed, 32) || !HasPlanes(planes, 8) || width <= 0 || height <= 0)
        return 0;
    return 4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

void Merge(const CPixView& out, const CPixView& source, const PlaneOrder& order,
           std::uint8_t constant, MergeRow KernelTable::*kernel)
{
    const std::size_t bytes = PackedBytes(out, source);
    if (bytes == 0)
        return;
    const MergeRow merge = ActiveKernels(bytes).*kernel;
    const std::int32_t width = std::min(out.width, source.width);
    const std::int32_t height = std::min(out.height, source.height);
    for (std::int32_t y = 0; y < height; ++y) {
        MergedRows rows{{}, constant};
        for (std::size_t i = 0; i < order.size(); ++i)
            if (order[i] >= 0 && order[i] < source.planeCount)
                rows.fBytes[i] = RowOf<std::uint8_t>(source, order[i], y);
        merge(rows, RowOf<std::uint32_t>(out, 0, y), static_cast<std::size_t>(width));
    }
}

} // namespace

void MergePlanes(const CPixView& out, const CPixView& source, const PlaneOrder& order,
                 std::uint8_t constant)
{
    Merge(out, source, order, constant, &KernelTable::mergePlanes);
}

void MergePremultiplied(const CPixView& out, const CPixView& source, const PlaneOrder& order,
                        std::uint8_t constant)
{
    Merge(out, source, order, constant, &KernelTable::mergePremultiplied);
}

void SplitPlanes(const CPixView& out, const CPixView& source, const PlaneOrder& order)
{
    const std::size_t bytes = PackedBytes(source, out);
    if (bytes == 0)
        return;
    const auto split = ActiveKernels(bytes).splitPlanes;
    const std::int32_t width = std::min(out.width, source.width);
    const std::int32_t height = std::min(out.height, source.height);
    for (std::int32_t y = 0; y < height; ++y) {
        SplitRows rows{};
        for (std::size_t i = 0; i < order.size(); ++i)
            if (order[i] >= 0 && order[i] < out.planeCount)
                rows[i] = RowOf<std::uint8_t>(out, order[i], y);
        split(RowOf<std::uint32_t>(source, 0, y), rows, static_cast<std::size_t>(width));
    }
}

} // namespace Kesto::Kernels
