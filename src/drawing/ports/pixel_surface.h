// CPixelSurface, the pixels of a bitmap of 32 bits as drawing computes with them: what every system
// shows is what these loops wrote.
//
// A pixel is blue, green, red and alpha, lowest byte first, premultiplied. Rectangles lie within
// the surface; whoever calls has clipped them.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "platform/graphics/bitmap.h"

#include <cstddef>
#include <cstdint>

namespace Kesto {

struct CPixelSurface {
    std::uint8_t* bits = nullptr; // the top left pixel
    std::ptrdiff_t rowBytes = 0;
    PixelPoint size;

    PixelRect Bounds() const { return {0, 0, size.x, size.y}; }
    std::uint32_t* At(std::int32_t x, std::int32_t y) const
    {
        return reinterpret_cast<std::uint32_t*>(bits + y * rowBytes) + x;
    }
};

// A brush ready for painting: its pixels, and where its pattern begins on the surface.
struct CPixelBrush {
    std::uint32_t pixel = 0;  // where the pattern has a 1
    std::uint32_t second = 0; // where it has a 0
    std::uint64_t pattern = CBrush::kSolid;
    PixelPoint origin;
    ETransferMode transfer = kTransfer_Copy;

    std::uint32_t PixelAt(std::int32_t x, std::int32_t y) const;
};

// The pixels of a bitmap of 32 bits; nothing of any other.
CPixelSurface SurfaceOf(const Platform::Bitmap& bitmap);

// A solid one that replaces what is there.
CPixelBrush SolidPixels(Colour colour);

// Solid, patterned, translucent or complementing, as the brush says.
void FillPixels(const CPixelSurface& surface, const PixelRect& rect, const CPixelBrush& brush);

// A rectangle of one surface onto another, its top left corner at `at`: replaced, or blended, each
// channel becoming s + T[255 - alpha][d] with the blend table's T. Of one surface only when they do
// not overlap.
void CopyPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                const PixelPoint& at);
void BlendPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                 const PixelPoint& at);

// Moves a rectangle within the surface to where its top left corner is `at`; it stays inside.
void MovePixels(const CPixelSurface& surface, const PixelRect& rect, const PixelPoint& at);

} // namespace Kesto
