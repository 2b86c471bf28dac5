// Bitmaps of windows as picture files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace Host {

// Red, green and blue of each pixel, rows from the top, as it was when it was made.
class BitmapCopy {
public:
    // Of blue, green, red and an unused byte of each pixel.
    BitmapCopy(std::int32_t width, std::int32_t height, const std::uint8_t* pixels,
               std::int64_t rowBytes);

    std::int32_t Width() const { return fWidth; }
    std::int32_t Height() const { return fHeight; }
    const std::vector<std::uint8_t>& Pixels() const { return fPixels; }

private:
    std::int32_t fWidth;
    std::int32_t fHeight;
    std::vector<std::uint8_t> fPixels;
};

// Throws Failure if the file can't be written.
void WriteBitmap(const std::filesystem::path& path, const BitmapCopy& bitmap);

} // namespace Host
