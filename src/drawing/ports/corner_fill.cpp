#include "drawing/ports/corner_fill.h"

#include "drawing/ports/corner_masks.h"
#include "platform/graphics/blend.h"

#include <algorithm>
#include <array>

namespace Kesto {
namespace {

// What belongs to a corner of a frame, by the size of all of them. They do not overlap, also where
// they meet.
std::array<PixelRect, 4> CornersOf(const PixelRect& frame, std::int32_t width, std::int32_t height)
{
    const std::int32_t right = std::max(frame.right - width, frame.left + width);
    const std::int32_t bottom = std::max(frame.bottom - height, frame.top + height);
    return {{{frame.left, frame.top, frame.left + width, frame.top + height},
             {right, frame.top, frame.right, frame.top + height},
             {frame.left, bottom, frame.left + width, frame.bottom},
             {right, bottom, frame.right, frame.bottom}}};
}

// One pixel of a colour, by how much of it is covered.
class CCoverage {
public:
    explicit CCoverage(Colour colour) : fColour(colour) { fAlpha = colour.alpha; }
    void Lay(std::uint8_t covered, std::uint32_t& pixel)
    {
        if (covered == 0)
            return;
        fColour.alpha = static_cast<std::uint8_t>(Platform::TimesPart255(fAlpha, covered));
        pixel = Platform::PixelOver(Platform::PremultipliedPixel(fColour), pixel);
    }

private:
    Colour fColour;
    std::uint32_t fAlpha;
};

} // namespace

bool HasKeptCorners(const CRoundedFrame& shape)
{
    return std::max(shape.radiusX, shape.radiusY) <= CCornerMasks::kMostRadius;
}

void FillRounded(const CPixelSurface& surface, const CDeviceRegion& clip,
                 const CRoundedFrame& outer, const CRoundedFrame* inner, Colour colour,
                 const PixelRect& hidden)
{
    CCornerMasks& masks = CCornerMasks::Get();
    const CCornerMask mask = masks.Find(outer.radiusX, outer.radiusY);
    const bool ring = inner != nullptr && !inner->frame.IsEmpty();
    const CCornerMask hole = ring ? masks.Find(inner->radiusX, inner->radiusY) : CCornerMask{};
    const PixelRect& frame = outer.frame;
    const std::int32_t inset = ring ? inner->frame.left - frame.left : 0;
    const auto corners = CornersOf(frame, std::max(mask.width, ring ? hole.width + inset : 0),
                                   std::max(mask.height, ring ? hole.height + inset : 0));

    // All but the corners is filled without a look at how much of a pixel is covered.
    CDeviceRegion straight(frame);
    straight.Subtract(hidden).Intersect(clip);
    if (ring)
        straight.Subtract(inner->frame);
    for (const PixelRect& corner : corners)
        straight.Subtract(corner);
    for (const PixelRect& rect : straight.GetRects())
        FillPixels(surface, rect, SolidPixels(colour));

    CCoverage coverage(colour);
    const auto cover = [&](std::int32_t x, std::int32_t y) {
        const std::int32_t across = std::min(x - frame.left, frame.right - 1 - x);
        const std::int32_t down = std::min(y - frame.top, frame.bottom - 1 - y);
        const int left = ring ? hole.At(across - inset, down - inset) : 0;
        coverage.Lay(static_cast<std::uint8_t>(std::max(mask.At(across, down) - left, 0)),
                     *surface.At(x, y));
    };
    for (const PixelRect& rect : clip.GetRects())
        for (const PixelRect& corner : corners) {
            const PixelRect part = Intersect(Intersect(corner, rect), frame);
            for (std::int32_t y = part.top; y < part.bottom; ++y)
                for (std::int32_t x = part.left; x < part.right; ++x)
                    cover(x, y);
        }
}

} // namespace Kesto
