// The fast ways of UnfilterRows, for pixels of 1 to 4 bytes.
#pragma once

#include <cstdint>

namespace Kesto {

// For every processor.
void UnfilterWithSse2(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                      std::int32_t pixelBytes);

// May only be entered where the processor has AVX2.
void UnfilterWithAvx2(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                      std::int32_t pixelBytes);

} // namespace Kesto
