// The predictor of row filter 4.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace Kesto {

// Of the three neighbours the one nearest to left + up - upperLeft; of several the first in this order.
inline std::uint8_t Paeth(std::uint8_t left, std::uint8_t up, std::uint8_t upperLeft)
{
    const int toLeft = std::abs(up - upperLeft);
    const int toUp = std::abs(left - upperLeft);
    const int toUpperLeft = std::abs(left + up - 2 * upperLeft);
    if (toLeft <= toUp && toLeft <= toUpperLeft)
        return left;
    return toUp <= toUpperLeft ? up : upperLeft;
}

} // namespace Kesto
