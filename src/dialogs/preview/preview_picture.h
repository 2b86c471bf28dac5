// How samples of a preview become the pixels of the screen.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Project {

// A row of packed pixels: its colour planes, of which one is grey and the first three of more are
// red, green and blue.
struct ShownRow {
    const uint8_t* samples;
    const uint8_t* alphas; // a sample for each pixel, or null: all of it is opaque
    int32_t width;
    int32_t planes;
    int32_t depth; // bits of a sample: 8, 16 (0 to 32768) or 32 (0 to 1)
};

// Fills `to` with the row over white: blue, green, red and 255 for each pixel.
void ShowRow(uint8_t* to, const ShownRow& row);

} // namespace Project
