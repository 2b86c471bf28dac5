#include "pixels/kernels/mosaic.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

namespace {

void FillCell(Plane<const std::uint8_t> source, Plane<std::uint8_t> out, const Rect& cell, bool round)
{
    const std::size_t width = static_cast<std::size_t>(cell.right - cell.left);
    std::uint64_t sum = 0;
    for (std::int32_t y = cell.top; y < cell.bottom; ++y)
        sum += ActiveKernels().sum(source.Row(y) + cell.left, width);
    const std::uint64_t count = width * static_cast<std::size_t>(cell.bottom - cell.top);
    const std::uint32_t mean = static_cast<std::uint32_t>((sum + (round ? count / 2 : 0)) / count);
    for (std::int32_t y = cell.top; y < cell.bottom; ++y)
        ActiveKernels().fill(mean * 0x01010101u, out.Row(y) + cell.left, width);
}

} // namespace

void Mosaic(const CPixView& out, const CPixView& source, Point cell, bool round)
{
    if (cell.x <= 0 || cell.y <= 0)
        return;
    const Extent extent = CommonExtent(8, {&out, &source});
    const auto end = [](std::int32_t start, std::int32_t step, std::int32_t limit) {
        return step < limit - start ? start + step : limit;
    };
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane) {
        const Plane<const std::uint8_t> pixels = PlaneOf<std::uint8_t>(source, plane);
        const Plane<std::uint8_t> target = PlaneOf<std::uint8_t>(out, plane);
        for (std::int32_t y = 0, bottom = 0; y < extent.fHeight; y = bottom) {
            bottom = end(y, cell.y, extent.fHeight);
            for (std::int32_t x = 0, right = 0; x < extent.fWidth; x = right) {
                right = end(x, cell.x, extent.fWidth);
                FillCell(pixels, target, {x, y, right, bottom}, round);
            }
        }
    }
}

} // namespace Kesto::Kernels
