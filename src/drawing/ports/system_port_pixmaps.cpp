// Pixmaps, pictures and scrolling.
#include "drawing/ports/system_port.h"

#include "drawing/ports/picture_choice.h"
#include "drawing/ports/pixmap_stage.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Kesto {
namespace {

PixelRect WholePixels(const Rect& pixels)
{
    return ToDevice(pixels, 1.0);
}

} // namespace

void CSystemPort::DrawPrepared(const CPreparedPixels& pixels, bool blended)
{
    const CPixelSurface surface = Pixels();
    for (const PixelRect& clip : fState.clip.GetRects()) {
        const PixelRect part = Kesto::Intersect(clip, pixels.dest);
        if (part.IsEmpty())
            continue;
        const PixelRect source = Platform::Offset(part, -pixels.dest.left, -pixels.dest.top);
        const auto lay = blended ? BlendPixels : CopyPixels;
        lay(pixels.surface, source, surface, {part.left, part.top});
    }
}

// The part of a rectangle in which something may show.
PixelRect CSystemPort::VisiblePart(const PixelRect& pixels) const
{
    return Kesto::Intersect(pixels, fState.clip.GetBounds());
}

void CSystemPort::DrawPixmapBlended(CPixmap& pixmap, const Rect& source, const Rect& dest)
{
    if (source.IsEmpty() || dest.IsEmpty())
        return;
    const PixelRect pixels = ToPixels(dest);
    const PixelRect visible = VisiblePart(pixels);
    if (!visible.IsEmpty())
        DrawPrepared(CPixmapStage::Get().Prepare(pixmap, WholePixels(source), pixels, visible,
                                                 EAlphaUse::kBlended),
                     pixmap.GetPlaneCount() % 2 == 0);
}

void CSystemPort::DrawPixmap(CPixmap& pixmap, const Rect& source, const Rect& dest)
{
    if (source.IsEmpty() || dest.IsEmpty())
        return;
    const PixelRect pixels = ToPixels(dest);
    const PixelRect visible = VisiblePart(pixels);
    if (!visible.IsEmpty())
        DrawPrepared(CPixmapStage::Get().Prepare(pixmap, WholePixels(source), pixels, visible,
                                                 EAlphaUse::kIgnored),
                     false);
}

void CSystemPort::DrawPort(const CSystemPort& port, const Rect& source, const Rect& dest)
{
    if (source.IsEmpty() || dest.IsEmpty() || port.fSurface == nullptr)
        return;
    const PixelRect pixels = ToPixels(dest);
    const PixelRect visible = VisiblePart(pixels);
    if (visible.IsEmpty())
        return;
    CPixelSurface surface = port.Pixels();
    surface.size = port.fSurfaceSize;
    CPixmapStage& stage = CPixmapStage::Get();
    const CPreparedPixels prepared = stage.Prepare(surface, port.ToPixels(source), pixels, visible);
    DrawPrepared(surface.bits == Pixels().bits ? stage.Detach(prepared) : prepared, false);
}

void CSystemPort::DrawPicture(const CDualPicture& picture, const Rect& frame)
{
    const CPictureChoice choice = ChoosePicture(picture, fScale);
    if (choice.pixmap == nullptr)
        return;
    const PixelRect bounds = choice.pixmap->GetBounds();
    CMemoryPixmap& pixmap = const_cast<CMemoryPixmap&>(*choice.pixmap); // read only
    DrawPixmapBlended(pixmap,
                      {static_cast<double>(bounds.left), static_cast<double>(bounds.top),
                       static_cast<double>(bounds.right), static_cast<double>(bounds.bottom)},
                      frame);
}

void CSystemPort::DrawPicture(const CDualPicture& picture, const Point& corner)
{
    const Point size = ChoosePicture(picture, fScale).size;
    DrawPicture(picture, Rect{corner.x, corner.y, corner.x + size.x, corner.y + size.y});
}

void CSystemPort::DrawIcon(const CDualPicture& picture, const Rect& frame)
{
    if (frame.IsEmpty())
        return;
    const Point size = ChoosePicture(picture, fScale).size;
    DrawPicture(picture, Point{frame.left + std::floor((frame.Width() - size.x) / 2),
                               frame.top + std::floor((frame.Height() - size.y) / 2)});
}

void CSystemPort::ScrollPixels(const Rect& area, double dx, double dy, CDeviceRegion& uncovered)
{
    CDeviceRegion clipped = fState.clip;
    clipped.Intersect(area.IsEmpty() ? PixelRect{} : ToPixels(area));
    uncovered = clipped;
    const std::int32_t right = RoundHalfAway(dx * fScale);
    const std::int32_t down = RoundHalfAway(dy * fScale);
    // Pixels move by whole pixels only: otherwise what moved and what is drawn anew would not meet.
    if (!(std::abs(dx * fScale - right) < 1e-6 && std::abs(dy * fScale - down) < 1e-6))
        return;
    CDeviceRegion moved = clipped;
    moved.Move(right, down);
    moved.Intersect(clipped);
    uncovered.Subtract(moved);

    // In an order in which no piece overwrites what another one still has to move.
    std::vector<PixelRect> pieces(moved.GetRects().begin(), moved.GetRects().end());
    std::ranges::sort(pieces, [&](const PixelRect& a, const PixelRect& b) {
        if (a.top != b.top)
            return down > 0 ? a.top > b.top : a.top < b.top;
        return right > 0 ? a.left > b.left : a.left < b.left;
    });
    for (const PixelRect& piece : pieces)
        MovePixels(Pixels(), Platform::Offset(piece, -right, -down), {piece.left, piece.top});
}

} // namespace Kesto
