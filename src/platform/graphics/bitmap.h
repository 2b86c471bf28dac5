// A bitmap whose pixels everyone may write, the graphics system among them: a DIB section on
// Windows, memory of our own on Linux.
//
// Rows run from the top row down, each padded to a multiple of 4 bytes. Pixels of 32 bits are blue,
// green, red and alpha in memory, the colours multiplied by alpha where anything is blended.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace Platform {

class Bitmap {
public:
    Bitmap() = default;
    Bitmap(Bitmap&& other) noexcept
        : fNative(std::exchange(other.fNative, 0)), fBits(std::exchange(other.fBits, nullptr)),
          fSize(std::exchange(other.fSize, {}))
    {
    }
    Bitmap& operator=(Bitmap&& other) noexcept
    {
        std::swap(fNative, other.fNative);
        std::swap(fBits, other.fBits);
        std::swap(fSize, other.fSize);
        return *this;
    }
    ~Bitmap() { Release(); }

    // Makes a bitmap of zeros in place of the one that was there; sizes are at least 1. With
    // `paletteIndices`, a pixel is an index of the palette of whatever is drawn on. Returns false
    // with the operating system's code in LastError, possibly 0; there is no bitmap then. Linux
    // knows 1, 8, 16 and 32 bits.
    bool Make(std::int32_t width, std::int32_t height, std::int32_t pixelBits, bool paletteIndices);
    void Release();

    // The first byte of the top row, or null.
    std::uint8_t* Bits() const { return fBits; }

    // All 0 where there is no bitmap.
    std::int32_t Width() const { return fSize.width; }
    std::int32_t Height() const { return fSize.height; }
    std::int32_t PixelBits() const { return fSize.pixelBits; }
    std::ptrdiff_t RowBytes() const { return fSize.rowBytes; }

    // What holds the pixels, as an HBITMAP on Windows; 0 where there is no bitmap.
    std::intptr_t Native() const { return fNative; }

    // Call these around writing to the pixels when the graphics system has drawn, or will draw, on
    // them.
    void BeginWriting() const;
    void EndWriting() const;

private:
    struct Size {
        std::int32_t width = 0;
        std::int32_t height = 0;
        std::int32_t pixelBits = 0;
        std::ptrdiff_t rowBytes = 0;
    };

    std::intptr_t fNative = 0;
    std::uint8_t* fBits = nullptr;
    Size fSize;
};

} // namespace Platform
