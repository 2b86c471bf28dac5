#include "images/png/unfilter.h"

namespace Kesto {

void UnfilterRows(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows, std::int32_t pixelBytes)
{
    UnfilterRowsPlainly(data, rowBytes, rows, pixelBytes);
}

} // namespace Kesto
