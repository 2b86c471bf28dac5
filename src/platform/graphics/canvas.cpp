#include "platform/graphics/canvas.h"

#include "platform/graphics/blend.h"
#include "platform/graphics/stroke.h"

#include <algorithm>

namespace Platform {
namespace {

constexpr double kWidest = 1e9; // of strokes, in pixels

// Shapes are drawn one after the other, so that all canvases share one.
Rasterizer& SharedRasterizer()
{
    static Rasterizer rasterizer;
    return rasterizer;
}

PixelRect BoundsOf(std::span<const PixelRect> rects)
{
    PixelRect bounds;
    for (const PixelRect& rect : rects)
        bounds = Union(bounds, rect);
    return bounds;
}

// A sum, at most at the limits of 32 bits.
std::int32_t Add(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{a} + b, INT32_MIN, INT32_MAX));
}

} // namespace

Canvas::Canvas(const Bitmap& bitmap) : fBits(bitmap.Bits()), fRowBytes(bitmap.RowBytes())
{
    if (bitmap.PixelBits() == 32)
        fBounds = {0, 0, bitmap.Width(), bitmap.Height()};
    ClearClip();
}

void Canvas::SetClip(std::span<const PixelRect> rects)
{
    fClip.clear();
    for (const PixelRect& rect : rects)
        if (const PixelRect seen = Intersect(rect, fBounds); !seen.IsEmpty())
            fClip.push_back(seen);
}

void Canvas::ClearClip()
{
    SetClip({&fBounds, 1});
}

std::uint32_t* Canvas::PixelsAt(std::int32_t x, std::int32_t y) const
{
    return reinterpret_cast<std::uint32_t*>(fBits + y * fRowBytes) + x;
}

void Canvas::Fill(const Path& path, Colour colour, FillRule rule)
{
    Rasterizer& rasterizer = SharedRasterizer();
    rasterizer.Begin(BoundsOf(fClip));
    for (const Path::Figure& figure : path.Figures())
        rasterizer.AddFigure(figure.points);
    Draw(rasterizer, colour, rule);
}

void Canvas::Stroke(const Path& path, double width, Colour colour)
{
    if (!(width > 0))
        return;
    Rasterizer& rasterizer = SharedRasterizer();
    rasterizer.Begin(BoundsOf(fClip));
    for (const Path::Figure& figure : path.Figures())
        AddStroke(rasterizer, figure, std::min(width, kWidest));
    Draw(rasterizer, colour, FillRule::kNonZero);
}

void Canvas::Draw(Rasterizer& rasterizer, Colour colour, FillRule rule)
{
    const std::uint32_t pixel = PremultipliedPixel(colour);
    rasterizer.Sweep(rule, [&](std::int32_t y, std::span<const CoverageSpan> spans) {
        for (const PixelRect& clip : fClip)
            if (clip.top <= y && y < clip.bottom)
                for (const CoverageSpan& span : spans) {
                    const std::int32_t left = std::max(span.left, clip.left);
                    const std::int32_t right = std::min(span.right, clip.right);
                    if (left < right)
                        LayOver(PixelsAt(left, y), static_cast<std::size_t>(right - left),
                                ScalePixel(pixel, span.coverage));
                }
    });
}

void Canvas::DrawTextLine(const TextLine& line, PixelPoint start, Colour colour)
{
    const std::uint32_t pixel = PremultipliedPixel(colour);
    const PixelRect ink = line.InkBounds();
    const PixelRect placed{Add(ink.left, start.x), Add(ink.top, start.y), Add(ink.right, start.x),
                           Add(ink.bottom, start.y)};
    for (const PixelRect& clip : fClip) {
        const PixelRect area = Intersect(placed, clip);
        if (area.IsEmpty())
            continue;
        const TextLine::Coverage coverage = line.CoverageOf(
            {area.left - start.x, area.top - start.y, area.right - start.x, area.bottom - start.y});
        for (std::int32_t y = area.top; y < area.bottom; ++y)
            LayOverCovered(PixelsAt(area.left, y),
                           coverage.first + (y - area.top) * coverage.rowBytes,
                           static_cast<std::size_t>(area.right - area.left), pixel);
    }
}

} // namespace Platform
