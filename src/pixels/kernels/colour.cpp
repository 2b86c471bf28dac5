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

void MergePlanes(const CPixView& out, const CPixView& source, const PlaneOrder& order,
                 std::uint8_t constant)
{
    if (!HasPlanes(out, 32) || !HasPlanes(source, 8))
        return;
    const std::int32_t width = std::min(out.width, source.width);
    const std::int32_t height = std::min(out.height, source.height);
    for (std::int32_t y = 0; y < height; ++y) {
        // A constant byte is a row that does not move on.
        std::array<const std::uint8_t*, 4> rows;
        std::array<std::ptrdiff_t, 4> steps;
        for (std::size_t i = 0; i < 4; ++i) {
            const bool taken = order[i] >= 0 && order[i] < source.planeCount;
            rows[i] = taken ? RowOf<std::uint8_t>(source, order[i], y) : &constant;
            steps[i] = taken ? 1 : 0;
        }
        std::uint32_t* target = RowOf<std::uint32_t>(out, 0, y);
        for (std::int32_t x = 0; x < width; ++x)
            target[x] = std::uint32_t{rows[0][x * steps[0]]} |
                        std::uint32_t{rows[1][x * steps[1]]} << 8 |
                        std::uint32_t{rows[2][x * steps[2]]} << 16 |
                        std::uint32_t{rows[3][x * steps[3]]} << 24;
    }
}

} // namespace Kesto::Kernels
