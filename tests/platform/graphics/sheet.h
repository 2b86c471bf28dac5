// A bitmap of 32 bits for tests to draw on and look into.
#pragma once

#include "platform/graphics/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace Tests {

class Sheet {
public:
    Sheet(std::int32_t width, std::int32_t height, std::uint32_t ground = 0)
    {
        fBitmap.Make(width, height, 32, false);
        std::ranges::fill(Pixels(), ground);
    }

    const Platform::Bitmap& GetBitmap() const { return fBitmap; }

    // Row by row; rows of 32 bits have no padding.
    std::span<std::uint32_t> Pixels() const
    {
        return {reinterpret_cast<std::uint32_t*>(fBitmap.Bits()),
                static_cast<std::size_t>(fBitmap.Width() * fBitmap.Height())};
    }

    std::uint32_t At(std::int32_t x, std::int32_t y) const
    {
        return Pixels()[static_cast<std::size_t>(y * fBitmap.Width() + x)];
    }
    std::uint32_t AlphaAt(std::int32_t x, std::int32_t y) const { return At(x, y) >> 24; }

    // Of all pixels together, in whole pixels.
    double CoveredArea() const
    {
        double sum = 0.0;
        for (const std::uint32_t pixel : Pixels())
            sum += pixel >> 24;
        return sum / 255;
    }

private:
    Platform::Bitmap fBitmap;
};

} // namespace Tests
