#include "pixels/kernels/mosaic.h"

#include "foundation/base/block.h"
#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/view_access.h"

#include <algorithm>

namespace Kesto::Kernels {

void Mosaic(const CPixView& out, const CPixView& source, PixelPoint cell, bool round)
{
    if (cell.x <= 0 || cell.y <= 0)
        return;
    const Extent extent = CommonExtent(8, {&out, &source});
    CMemoryBlock sums;
    sums.SetSize(static_cast<std::size_t>(extent.fWidth) * sizeof(std::uint32_t));
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane) {
        // A row of cells at a time; the last may be lower.
        for (std::int32_t y = 0, rows = 0; y < extent.fHeight; y += rows) {
            rows = std::min(cell.y, extent.fHeight - y);
            const auto band = [&](const CPixView& view) {
                return Plane<std::uint8_t>{RowOf<std::uint8_t>(view, plane, y), view.rowBytes,
                                           extent.fWidth, rows};
            };
            ActiveKernels().mosaicBand(
                band(source), band(out), cell.x, round,
                static_cast<std::uint32_t*>(static_cast<void*>(sums.Data())));
        }
    }
}

} // namespace Kesto::Kernels
