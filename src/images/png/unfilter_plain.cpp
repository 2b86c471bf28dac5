// Unfiltering byte by byte: the meaning of the filters, and what the fast twins are held against.
#include "images/png/unfilter.h"

#include <cstddef>
#include <cstdlib>

namespace Kesto {

namespace {

// Of the three neighbours the one nearest to left + up - upperLeft; of several the first in this
// order.
std::uint8_t Paeth(std::uint8_t left, std::uint8_t up, std::uint8_t upperLeft)
{
    const int toLeft = std::abs(up - upperLeft);
    const int toUp = std::abs(left - upperLeft);
    const int toUpperLeft = std::abs(left + up - 2 * upperLeft);
    if (toLeft <= toUp && toLeft <= toUpperLeft)
        return left;
    return toUp <= toUpperLeft ? up : upperLeft;
}

std::uint8_t Predict(std::uint8_t filter, std::uint8_t left, std::uint8_t up,
                     std::uint8_t upperLeft)
{
    switch (filter) {
    case 1:
        return left;
    case 2:
        return up;
    case 3:
        return static_cast<std::uint8_t>((left + up) / 2);
    case 4:
        return Paeth(left, up, upperLeft);
    default:
        return 0;
    }
}

} // namespace

void UnfilterRowsPlainly(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                         std::int32_t pixelBytes)
{
    for (std::int32_t y = 0; y < rows; ++y) {
        std::uint8_t* row = data + std::ptrdiff_t{y} * rowBytes;
        const std::uint8_t* above = y > 0 ? row - rowBytes : nullptr;
        for (std::int32_t i = 1; i < rowBytes; ++i) {
            const std::int32_t before = i - pixelBytes;
            const bool isFirst = before < 1;
            row[i] = static_cast<std::uint8_t>(
                row[i] + Predict(row[0], isFirst ? 0 : row[before], above == nullptr ? 0 : above[i],
                                 isFirst || above == nullptr ? 0 : above[before]));
        }
    }
}

} // namespace Kesto
