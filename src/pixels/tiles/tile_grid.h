// TileGrid, the arithmetic of a pixmap that is cut into tiles.
//
// A tile of class c at a depth of 1 << d bits holds 2^n pixels with n = 11 + c - d, so that it
// always takes 256 << c bytes. It is square for an even n and twice as wide as high for an odd one.
#pragma once

#include <cstdint>

namespace Kesto {

// Which tiles a pixmap is made of: the size code of its constructor and the depth, resolved.
struct TileShape {
    // Bit 7 of the code clear: the code is the class, 0 to 15. Bit 7 set: the other bits, 0 to 4,
    // select square tiles of 64, 128, 256, 512 or 1024 pixels at any depth. Throws std::logic_error
    // for any other code, or a depth above 5.
    static TileShape FromCode(std::uint8_t depthLog2, std::uint8_t sizeCode);

    std::uint8_t fClass = 0;
    std::int32_t fWidth = 0; // pixels, a power of 2
    std::int32_t fHeight = 0;
};

// How many tiles a pixmap takes, and the index of each in the array of them:
// column * fColumnStride + row * fRowStride + plane * fPlaneStride.
struct TileGrid {
    // Throws std::length_error for a negative size, and for more tiles than 31 bits can count.
    TileGrid(const TileShape& shape, std::int32_t width, std::int32_t height, std::int32_t planes,
             bool interleaved);

    std::int32_t fTilesAcross;
    std::int32_t fTilesDown;
    std::uint32_t fCount;
    std::int32_t fColumnStride;
    std::int32_t fRowStride;
    std::int32_t fPlaneStride;
};

} // namespace Kesto
