// Laying colours over rows of premultiplied pixels.
#pragma once

#include "platform/graphics/colour.h"

#include <cstddef>
#include <cstdint>

namespace Platform {

// All four bytes of a pixel times part / 255, each to the nearest: two at a time.
constexpr std::uint32_t ScalePixel(std::uint32_t pixel, std::uint32_t part)
{
    constexpr std::uint32_t kPair = 0x00FF00FF;
    constexpr std::uint32_t kHalf = 0x00800080;
    const std::uint32_t low = (pixel & kPair) * part + kHalf;
    const std::uint32_t high = (pixel >> 8 & kPair) * part + kHalf;
    return ((low + (low >> 8 & kPair)) >> 8 & kPair) | ((high + (high >> 8 & kPair)) & ~kPair);
}

// `source`, premultiplied, over a pixel.
constexpr std::uint32_t PixelOver(std::uint32_t source, std::uint32_t pixel)
{
    return source + ScalePixel(pixel, 255 - (source >> 24));
}

// Lays a premultiplied pixel over `count` pixels, an opaque one without reading them.
void LayOver(std::uint32_t* pixels, std::size_t count, std::uint32_t source);

// The same, with the source scaled by each pixel's coverage.
void LayOverCovered(std::uint32_t* pixels, const std::uint8_t* coverage, std::size_t count,
                    std::uint32_t source);

} // namespace Platform
