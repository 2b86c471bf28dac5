// Rows of samples as a PNG file has them, pixel by pixel, on their way to rows of planes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kesto {

// One plane row for each channel; those after the last are not looked at.
using PlaneRows = std::array<std::uint8_t*, 4>;

// What the samples of a row mean.
struct SampleFormat {
    std::size_t channels = 0; // samples of a pixel in the file, 1 to 4
    std::size_t planes = 0;   // of the pixmap; one more than channels when there is a key colour
    bool isIndexed = false;   // the one sample is an index of `palette`, whatever the channels say
    std::array<std::uint16_t, 3>
        key{}; // the colour that is transparent; above 255 it is met by no pixel
    std::array<std::uint32_t, 256> palette{}; // red in the lowest byte, then green, blue, alpha
    std::array<std::array<std::uint8_t, 256>, 4> paletteOfPlane{}; // the same, each by itself
};

// Puts the samples of `pixels` pixels into their planes, whose rows overlap neither each other nor
// the samples. Alpha of a key colour is 0 where all samples equal it, and 255 elsewhere.
void SplitRow(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels,
              const PlaneRows& planes);

} // namespace Kesto
