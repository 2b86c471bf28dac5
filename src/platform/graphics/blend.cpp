#include "platform/graphics/blend.h"

#include <algorithm>
#include <cstring>

namespace Platform {

void LayOver(std::uint32_t* pixels, std::size_t count, std::uint32_t source)
{
    if (source >> 24 == 255) {
        std::fill_n(pixels, count, source);
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = PixelOver(source, pixels[i]);
}

void LayOverCovered(std::uint32_t* pixels, const std::uint8_t* coverage, std::size_t count,
                    std::uint32_t source)
{
    std::size_t i = 0;
    while (i < count) {
        std::uint64_t eight = 1;
        if (count - i >= sizeof eight)
            std::memcpy(&eight, coverage + i, sizeof eight);
        if (eight == 0) { // most of a line of text
            i += sizeof eight;
            continue;
        }
        for (const std::size_t end = std::min(count, i + sizeof eight); i < end; ++i)
            if (coverage[i] != 0)
                pixels[i] = PixelOver(ScalePixel(source, coverage[i]), pixels[i]);
    }
}

} // namespace Platform
