// TestImage, an off-screen port whose pixels a test can look at.
#pragma once

#include "drawing/ports/image.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <cstdint>
#include <string>

namespace Kesto {

class TestImage : public CImage {
public:
    // Opaque white, in units of the scale.
    TestImage(std::int32_t width, std::int32_t height, double scale = 1.0) : CImage(width, height)
    {
        Clear(kWhite);
        SetScaleFactor(scale);
    }

    void Clear(Colour colour)
    {
        FillPixels(SurfaceOf(GetDisplay().GetBitmap()), {0, 0, GetSize().x, GetSize().y},
                   SolidPixels(colour));
    }

    std::uint32_t& At(std::int32_t x, std::int32_t y) const
    {
        return *SurfaceOf(GetDisplay().GetBitmap()).At(x, y);
    }

    // The rectangle around all pixels that are not white, or four zeros.
    PixelRect Inked() const
    {
        PixelRect inked{GetSize().x, GetSize().y, 0, 0};
        for (std::int32_t y = 0; y < GetSize().y; ++y)
            for (std::int32_t x = 0; x < GetSize().x; ++x)
                if (At(x, y) != 0xFFFFFFFF)
                    inked = {std::min(inked.left, x), std::min(inked.top, y),
                             std::max(inked.right, x + 1), std::max(inked.bottom, y + 1)};
        return inked.IsEmpty() ? PixelRect{} : inked;
    }

    // A row for each line of pixels: '.' white, '#' black, '+' anything else.
    std::string Sketch() const
    {
        std::string sketch;
        for (std::int32_t y = 0; y < GetSize().y; ++y) {
            for (std::int32_t x = 0; x < GetSize().x; ++x)
                sketch += At(x, y) == 0xFFFFFFFF ? '.' : At(x, y) == 0xFF000000 ? '#' : '+';
            sketch += '\n';
        }
        return sketch;
    }

    // Of all pixels (FNV-1a).
    std::uint64_t Hash() const
    {
        std::uint64_t hash = 0xCBF29CE484222325;
        for (std::int32_t y = 0; y < GetSize().y; ++y)
            for (std::int32_t x = 0; x < GetSize().x; ++x)
                hash = (hash ^ At(x, y)) * 0x100000001B3;
        return hash;
    }
};

// Planes of 8 bits whose pixel values a function of plane, x and y gives.
template <class Value>
CMemoryPixmap MakePlanes(std::int32_t planes, std::int32_t width, std::int32_t height, Value value)
{
    CMemoryPixmap pixmap(8, width, height, planes, 4, 0);
    for (std::int32_t plane = 0; plane < planes; ++plane)
        for (std::int32_t y = 0; y < height; ++y)
            for (std::int32_t x = 0; x < width; ++x)
                pixmap.GetBaseAddress()[plane * pixmap.GetPlaneBytes() + y * pixmap.GetRowBytes() +
                                        x] = static_cast<std::uint8_t>(value(plane, x, y));
    return pixmap;
}

} // namespace Kesto
