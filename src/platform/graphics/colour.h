// Colours of drawing, and how they lie in a bitmap.
#pragma once

#include <cstdint>

namespace Platform {

// 8 bits each; not multiplied by alpha.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend bool operator==(const Colour&, const Colour&) = default;
};

// Of a number that is written 0xBBGGRR.
constexpr Colour ColourFromBGR(std::uint32_t number)
{
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
            static_cast<std::uint8_t>(number >> 16)};
}

// a * b / 255 to the nearest, for a and b up to 255.
constexpr std::uint32_t TimesPart255(std::uint32_t a, std::uint32_t b)
{
    const std::uint32_t product = a * b + 128;
    return (product + (product >> 8)) >> 8;
}

// As one pixel of a bitmap, read as a little-endian number: alpha at the top, then red, green and
// blue, each multiplied by alpha.
constexpr std::uint32_t PremultipliedPixel(Colour colour)
{
    return static_cast<std::uint32_t>(colour.alpha) << 24 |
           TimesPart255(colour.red, colour.alpha) << 16 |
           TimesPart255(colour.green, colour.alpha) << 8 | TimesPart255(colour.blue, colour.alpha);
}

} // namespace Platform
