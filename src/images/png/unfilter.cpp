#include "images/png/unfilter.h"

#include "images/png/unfilter_twins.h"
#include "pixels/kernels/cpu.h"

namespace Kesto {

void UnfilterRows(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                  std::int32_t pixelBytes)
{
    if (pixelBytes < 1 || pixelBytes > 4)
        // No picture that is accepted has such pixels.
        UnfilterRowsPlainly(data, rowBytes, rows, pixelBytes);
    else if (Kernels::ActiveCpuLevel() >= Kernels::CpuLevel::kAvx2)
        UnfilterWithAvx2(data, rowBytes, rows, pixelBytes);
    else
        UnfilterWithSse2(data, rowBytes, rows, pixelBytes);
}

} // namespace Kesto
