// The plain loop from hue, saturation and value to red, green and blue.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kesto::Kernels::Plain {

using RGBValue = std::array<std::uint32_t, 3>;

// Hue runs through six sectors of 43 levels; saturation and value are 0 to 255. A hue beyond the
// sectors gives black.
constexpr RGBValue HueToRGB(std::uint32_t hue, std::uint32_t s, std::uint32_t v)
{
    if (s == 0)
        return {v, v, v};
    const std::uint32_t fraction = hue % 43 * 6;
    const std::uint32_t p = (255 - s) * v >> 8;
    const std::uint32_t q = (65535 - fraction * s) * v >> 16;
    const std::uint32_t t = (65535 - (255 - fraction) * s) * v >> 16;
    switch (hue / 43) {
    case 0:
        return {v, t, p};
    case 1:
        return {q, v, p};
    case 2:
        return {p, v, t};
    case 3:
        return {p, q, v};
    case 4:
        return {t, p, v};
    case 5:
        return {v, p, q};
    default:
        return {0, 0, 0};
    }
}

template <class T>
void HueRowToRGB(const T* const hsv[3], T* const rgb[3], std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        const RGBValue colour = HueToRGB(hsv[0][i], hsv[1][i], hsv[2][i]);
        for (std::size_t channel = 0; channel < 3; ++channel)
            rgb[channel][i] = static_cast<T>(colour[channel]);
    }
}

} // namespace Kesto::Kernels::Plain
