// What needs a rasteriser, drawn into a bitmap of 32 bits: antialiased paths and lines of text,
// within a clip.
//
// A canvas writes straight to the pixels and keeps nothing of the graphics system, so that making
// one is free and drawing may alternate with other pixel code at will. Pixels are premultiplied:
// colours are laid over them with their alpha, and the alpha byte becomes that of the result. The
// same path gives the same pixels on every system.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/graphics/colour.h"
#include "platform/graphics/fonts.h"
#include "platform/graphics/path.h"
#include "platform/graphics/rasterizer.h"
#include "platform/system/pixel_rect.h"

#include <span>
#include <vector>

namespace Platform {

class Canvas {
public:
    // Draws on all of the bitmap, which must outlive the canvas. A bitmap that isn't there, or has
    // no 32 bits, is drawn on by nothing.
    explicit Canvas(const Bitmap& bitmap);

    // Draws within these rectangles only, which must not overlap each other, and the bitmap. None:
    // nothing is drawn.
    void SetClip(std::span<const PixelRect> rects);
    void ClearClip();

    void Fill(const Path& path, Colour colour, FillRule rule = FillRule::kNonZero);

    // A line of this width in pixels along the path's middle, with flat ends and mitred corners,
    // which are cut off where they would stand out more than four half widths. A width of 0 or
    // below draws nothing.
    void Stroke(const Path& path, double width, Colour colour);

    // The line's left end lies at `start`, on the base line.
    void DrawTextLine(const TextLine& line, PixelPoint start, Colour colour);

private:
    void Draw(Rasterizer& rasterizer, Colour colour, FillRule rule);
    std::uint32_t* PixelsAt(std::int32_t x, std::int32_t y) const;

    PixelRect fBounds;
    std::uint8_t* fBits;
    std::ptrdiff_t fRowBytes;
    std::vector<PixelRect> fClip;
};

} // namespace Platform
