// The ports of things on the screen.
#include "drawing/ports/pixel_surface.h"
#include "drawing/ports/window_port.h"

#include <algorithm>
#include <utility>

namespace Kesto {

Point CScreenPort::ClientToScreen(const Point& units) const
{
    const Point inClient = CSystemPort::ClientToScreen(units);
    return {fScreenPosition.x + inClient.x, fScreenPosition.y + inClient.y};
}

bool CWindowPort::SetClientPixels(const PixelPoint& size)
{
    const PixelPoint wanted{std::max(size.x, 1), std::max(size.y, 1)};
    // It only grows: a window that is dragged smaller and larger keeps its pixels and costs no new
    // bitmap.
    if (wanted.x > fBitmap.Width() || wanted.y > fBitmap.Height()) {
        const PixelPoint grown{std::max(wanted.x, fBitmap.Width()),
                               std::max(wanted.y, fBitmap.Height())};
        Platform::Bitmap bitmap;
        if (!bitmap.Make(grown.x, grown.y, GetScreenDepth(), false))
            return false;
        FillPixels(SurfaceOf(bitmap), {0, 0, grown.x, grown.y}, SolidPixels(kBlack));
        if (fBitmap.Bits() != nullptr)
            CopyPixels(SurfaceOf(fBitmap), {0, 0, fBitmap.Width(), fBitmap.Height()},
                       SurfaceOf(bitmap), {});
        fBitmap = std::move(bitmap);
    }
    fClientPixels = wanted;
    SetSurface(&fBitmap, fClientPixels);
    return true;
}

} // namespace Kesto
