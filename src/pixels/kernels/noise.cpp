#include "pixels/kernels/noise.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/noise.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

std::uint32_t& SharedSeed()
{
    static std::uint32_t seed = 0;
    return seed;
}

void AddNoise(const CPixView& out, const CPixView& source, std::int32_t amount, std::uint32_t& seed)
{
    const auto noise = ActiveKernels().noise;
    const Extent extent = CommonExtent(8, {&out, &source});
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane)
        for (std::int32_t y = 0; y < extent.fHeight; ++y)
            noise(RowOf<std::uint8_t>(source, plane, y), RowOf<std::uint8_t>(out, plane, y),
                  static_cast<std::size_t>(extent.fWidth), amount, seed);
}

void RandomColour(const CPixView& out, const CPixView& source,
                  std::span<const std::uint8_t, 3> colour, std::int32_t threshold,
                  std::uint32_t& seed)
{
    const Extent extent = CommonExtent(8, {&out, &source});
    if (extent.fPlanes < 3)
        return;
    for (std::int32_t y = 0; y < extent.fHeight; ++y) {
        for (std::int32_t x = 0; x < extent.fWidth; ++x) {
            const bool coloured = Plain::NextSample(seed) < threshold;
            for (std::int32_t plane = 0; plane < 3; ++plane)
                RowOf<std::uint8_t>(out, plane, y)[x] =
                    coloured ? colour[static_cast<std::size_t>(plane)]
                             : RowOf<std::uint8_t>(source, plane, y)[x];
        }
    }
}

} // namespace Kesto::Kernels
