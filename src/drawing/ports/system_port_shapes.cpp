// The cores of the shape families, and lines.
#include "drawing/ports/system_port.h"

#include "drawing/ports/corner_fill.h"
#include "drawing/ports/rounded_frame.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Kesto {
namespace {

// All of a frame but what lies `width` pixels inside, as rectangles that do not overlap.
CDeviceRegion RingOf(const PixelRect& frame, std::int32_t width)
{
    CDeviceRegion ring(frame);
    ring.Subtract(PixelRect{frame.left + width, frame.top + width, frame.right - width,
                            frame.bottom - width});
    return ring;
}

// The part of a region that is less than `width` pixels away from what lies outside.
CDeviceRegion RingOf(const CDeviceRegion& region, std::int32_t width)
{
    const auto grown = [width](const PixelRect& rect) {
        return PixelRect{rect.left - width, rect.top - width, rect.right + width,
                         rect.bottom + width};
    };
    CDeviceRegion outside(grown(region.GetBounds()));
    outside.Subtract(region);
    CDeviceRegion ring;
    for (const PixelRect& rect : outside.GetRects())
        ring.Union(grown(rect));
    return ring.Intersect(region);
}

bool IsNumber(const Point& place)
{
    return !std::isnan(place.x) && !std::isnan(place.y);
}

CBrush SolidOf(const CPen& pen)
{
    return CBrush{pen.colour};
}

} // namespace

CPixelBrush CSystemPort::ToPixels(const CBrush& brush) const
{
    CPixelBrush pixels = SolidPixels(brush.colour);
    pixels.transfer = fState.transfer;
    if (brush.pattern == CBrush::kSolid)
        return pixels;
    pixels.pattern = brush.pattern;
    pixels.second = Platform::PremultipliedPixel(brush.second);
    pixels.origin = {ToDevice(fState.brushOrigin.x, fScale),
                     ToDevice(fState.brushOrigin.y, fScale)};
    return pixels;
}

std::int32_t CSystemPort::StrokePixels(double width) const
{
    return std::clamp(ToDevice(width, fScale), 1, kFarthestPixel);
}

void CSystemPort::FillDevice(const PixelRect& pixels, const CPixelBrush& brush)
{
    const CPixelSurface surface = Pixels();
    for (const PixelRect& clip : fState.clip.GetRects())
        if (const PixelRect part = Kesto::Intersect(clip, pixels); !part.IsEmpty())
            FillPixels(surface, part, brush);
}

void CSystemPort::FillDevice(const CDeviceRegion& pixels, const CPixelBrush& brush)
{
    for (const PixelRect& rect : pixels.GetRects())
        FillDevice(rect, brush);
}

void CSystemPort::DrawShape(const Rect& shape, const CPen* pen, const CBrush* brush)
{
    if (shape.IsEmpty())
        return;
    const PixelRect frame = ToPixels(shape);
    if (brush != nullptr)
        FillDevice(frame, ToPixels(*brush));
    if (pen != nullptr)
        FillDevice(RingOf(frame, StrokePixels(pen->width)), ToPixels(SolidOf(*pen)));
}

void CSystemPort::DrawShape(const CBRVRegion& shape, const CPen* pen, const CBrush* brush)
{
    const CDeviceRegion pixels = ToPixels(shape);
    if (brush != nullptr)
        FillDevice(pixels, ToPixels(*brush));
    if (pen != nullptr)
        FillDevice(RingOf(pixels, StrokePixels(pen->width)), ToPixels(SolidOf(*pen)));
}

void CSystemPort::DrawShape(const Oval& shape, const CPen* pen, const CBrush* brush)
{
    if (shape.frame.IsEmpty())
        return;
    const PixelRect frame = ToPixels(shape.frame);
    DrawCurve({frame, (frame.right - frame.left) / 2.0, (frame.bottom - frame.top) / 2.0}, pen,
              brush);
}

void CSystemPort::DrawShape(const RoundRect& shape, const CPen* pen, const CBrush* brush)
{
    if (shape.frame.IsEmpty())
        return;
    const PixelRect frame = ToPixels(shape.frame);
    const double most = std::min(frame.right - frame.left, frame.bottom - frame.top) / 2.0;
    const double radius = shape.radius > 0 ? std::min(shape.radius * fScale, most) : 0;
    DrawCurve({frame, radius, radius}, pen, brush);
}

void CSystemPort::DrawCurve(const CRoundedFrame& shape, const CPen* pen, const CBrush* brush)
{
    if (!fState.clip.Intersects(shape.frame))
        return;
    if (pen == nullptr) {
        FillCurve(shape, nullptr, *brush);
        return;
    }
    const CRoundedFrame inner = shape.Inset(StrokePixels(pen->width));
    if (brush == nullptr) {
        FillCurve(shape, &inner, SolidOf(*pen));
        return;
    }
    // The whole shape and then the inside over it: a ring beside a fill would let the ground
    // through where both cover a pixel in part.
    const bool covers = brush->pattern == CBrush::kSolid && brush->colour.alpha == 255 &&
                        fState.transfer == kTransfer_Copy;
    if (covers && HasKeptCorners(shape))
        FillRounded(Pixels(), fState.clip, shape, nullptr, pen->colour, inner.FullRows());
    else
        FillCurve(shape, nullptr, SolidOf(*pen));
    FillCurve(inner, nullptr, *brush);
}

// Of a ring, `inner` is what is left out.
void CSystemPort::FillCurve(const CRoundedFrame& outer, const CRoundedFrame* inner,
                            const CBrush& brush)
{
    if (brush.pattern != CBrush::kSolid || fState.transfer != kTransfer_Copy) {
        const PixelRect seen = fState.clip.GetBounds();
        CDeviceRegion pixels = outer.WholePixels(seen);
        if (inner != nullptr)
            pixels.Subtract(inner->WholePixels(seen));
        FillDevice(pixels, ToPixels(brush));
        return;
    }
    if (HasKeptCorners(outer)) {
        FillRounded(Pixels(), fState.clip, outer, inner, brush.colour);
        return;
    }
    fPath.Clear();
    outer.AddTo(fPath);
    if (inner != nullptr)
        inner->AddTo(fPath);
    ClippedCanvas().Fill(fPath, brush.colour, Platform::FillRule::kEvenOdd);
}

void CSystemPort::DrawLine(const Point& from, const Point& to)
{
    if (!IsNumber(from) || !IsNumber(to))
        return;
    const std::int32_t width = StrokePixels(fState.pen.width);
    const PixelPoint a = ToPixels(from);
    const PixelPoint b = ToPixels(to);
    if (a.x != b.x && a.y != b.y) {
        const Point places[] = {from, to};
        StrokePath(places);
        return;
    }
    // The pixel that the line begins with is covered, the one that it ends with is not.
    const auto [left, right] = a.x <= b.x ? std::pair(a.x, b.x) : std::pair(b.x, a.x);
    const auto [top, bottom] = a.y <= b.y ? std::pair(a.y, b.y) : std::pair(b.y, a.y);
    const std::int32_t shiftX = b.x < a.x ? width : 0;
    const std::int32_t shiftY = b.y < a.y ? width : 0;
    const PixelRect line = a.y == b.y
                               ? PixelRect{left + shiftX, top, right + shiftX, top + width}
                               : PixelRect{left, top + shiftY, left + width, bottom + shiftY};
    FillDevice(line, ToPixels(SolidOf(fState.pen)));
}

void CSystemPort::LineTo(const Point& place)
{
    DrawLine(fState.penPlace, place);
    fState.penPlace = place;
}

void CSystemPort::DrawPolyline(std::span<const Point> places)
{
    const auto isSlanted = [this](const Point& a, const Point& b) {
        const PixelPoint from = ToPixels(a);
        const PixelPoint to = ToPixels(b);
        return from.x != to.x && from.y != to.y;
    };
    if (std::ranges::adjacent_find(places, isSlanted) != places.end()) {
        StrokePath(places);
        return;
    }
    for (std::size_t i = 1; i < places.size(); ++i)
        DrawLine(places[i - 1], places[i]);
}

// The line runs through the middles of the pixels that its places begin.
void CSystemPort::StrokePath(std::span<const Point> places)
{
    const std::int32_t width = StrokePixels(fState.pen.width);
    fPath.Clear();
    for (const Point& place : places) {
        const Platform::PathPoint corner = ToPath(place);
        const Platform::PathPoint middle{corner.x + width / 2.0, corner.y + width / 2.0};
        if (&place == &places.front())
            fPath.MoveTo(middle);
        else
            fPath.LineTo(middle);
    }
    ClippedCanvas().Stroke(fPath, width, fState.pen.colour);
}

void CSystemPort::FillPolygon(std::span<const Point> corners, const Colour& colour)
{
    fPath.Clear();
    for (const Point& corner : corners) {
        if (&corner == &corners.front())
            fPath.MoveTo(ToPath(corner));
        else
            fPath.LineTo(ToPath(corner));
    }
    fPath.Close();
    ClippedCanvas().Fill(fPath, colour, Platform::FillRule::kEvenOdd);
}

} // namespace Kesto
