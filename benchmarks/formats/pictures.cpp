#include "formats/pictures.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace Bench {

Bytes PhotoLike(int width, int height)
{
    Bytes picture(size_t{3} * static_cast<size_t>(width) * static_cast<size_t>(height));
    std::minstd_rand random(1);
    size_t at = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int light =
                128 + static_cast<int>(60 * std::sin(x * 0.004) + 50 * std::cos(y * 0.003));
            const auto grain = static_cast<uint32_t>(random());
            for (int part = 0; part < 3; ++part)
                picture[at++] = static_cast<uint8_t>(std::clamp(
                    light + part * 8 + static_cast<int>((grain >> (8 + 4 * part)) & 15) - 8, 0,
                    255));
        }
    return picture;
}

void CartoonRow(int width, int row, uint8_t* bytes)
{
    // The borders of areas wander slowly from row to row; every band of rows has areas of its own.
    const int band = row / 96;
    std::minstd_rand random(static_cast<uint32_t>(band * 7919 + 1));
    const auto colour = [&] { return static_cast<uint32_t>(random()) & 0xF8F8F8; };
    uint32_t now = colour();
    for (int x = 0; x < width;) {
        const int wide = 8 + static_cast<int>(random() % 140);
        const int lean = static_cast<int>(random() % 3) - 1;
        const uint32_t next = colour();
        const int end = std::min(width, std::max(x + 4, x + wide + lean * (row % 96) / 8));
        for (; x < end; ++x) {
            const bool outline = end - x == 3, blend = end - x <= 2;
            const uint32_t pixel = outline ? 0x101010
                                   : blend ? ((now & 0xFEFEFE) + (next & 0xFEFEFE)) / 2 + x % 2
                                           : now;
            for (int part = 0; part < 3; ++part)
                *bytes++ = static_cast<uint8_t>(pixel >> (8 * part));
        }
        now = next;
    }
}

Bytes CartoonLike(int width, int height)
{
    const size_t rowBytes = size_t{3} * static_cast<size_t>(width);
    Bytes picture(rowBytes * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        CartoonRow(width, y, picture.data() + static_cast<size_t>(y) * rowBytes);
    return picture;
}

} // namespace Bench
