#include "pixels/kernels/blend_table.h"

namespace Kesto {

CBlendTable::CBlendTable()
{
    fTable.SetSize(256 * 256);
    std::uint8_t* table = reinterpret_cast<std::uint8_t*>(fTable.Data());
    for (std::uint32_t alpha = 128; alpha < 256; ++alpha) {
        for (std::uint32_t value = 0; value < 256; ++value) {
            const std::uint32_t part = (alpha * value + 127) / 255;
            table[alpha << 8 | value] = static_cast<std::uint8_t>(part);
            table[(255 - alpha) << 8 | value] = static_cast<std::uint8_t>(value - part);
        }
    }
}

} // namespace Kesto
