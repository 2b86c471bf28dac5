// How well two colours can be told apart, as the Web Content Accessibility Guidelines 2 define it.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace Testing {

// Of red, green and blue from 0 to 255.
inline double Luminance(const std::array<double, 3>& colour)
{
    constexpr double kWeights[] = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = colour[i] / 255;
        sum +=
            kWeights[i] * (part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

// Of two luminances, from 1 to 21.
inline double Contrast(double a, double b)
{
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace Testing
