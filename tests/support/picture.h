// A picture as the host holds it: interleaved 8-bit samples and a colour table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Testing {

using Bytes = std::vector<uint8_t>;
using Lut = std::array<std::array<uint8_t, 256>, 3>; // red, green, blue

struct Picture {
    int mode = 0; // kHostMode...
    int width = 0;
    int height = 0;
    int planes = 0;
    Bytes samples; // height * width * planes of them, top row first, the planes of a pixel side by
                   // side
    Lut lut{};

    Picture() = default;
    Picture(int aMode, int aWidth, int aHeight, int aPlanes, Bytes someSamples = {})
        : mode(aMode), width(aWidth), height(aHeight), planes(aPlanes),
          samples(std::move(someSamples))
    {
        samples.resize(static_cast<size_t>(width) * static_cast<size_t>(height) *
                       static_cast<size_t>(planes));
    }

    uint8_t& At(int x, int y, int plane)
    {
        return samples[(static_cast<size_t>(y) * static_cast<size_t>(width) +
                        static_cast<size_t>(x)) *
                           static_cast<size_t>(planes) +
                       static_cast<size_t>(plane)];
    }

    bool operator==(const Picture&) const = default;
};

} // namespace Testing
