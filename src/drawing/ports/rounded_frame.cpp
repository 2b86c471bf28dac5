#include "drawing/ports/rounded_frame.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

CRoundedFrame CRoundedFrame::Inset(std::int32_t pixels) const
{
    return {{frame.left + pixels, frame.top + pixels, frame.right - pixels, frame.bottom - pixels},
            std::max(radiusX - pixels, 0.0),
            std::max(radiusY - pixels, 0.0)};
}

PixelRect CRoundedFrame::FullRows() const
{
    const auto corner = static_cast<std::int32_t>(std::ceil(radiusY));
    return {frame.left, frame.top + corner, frame.right, frame.bottom - corner};
}

void CRoundedFrame::AddTo(Platform::Path& path) const
{
    if (frame.IsEmpty())
        return;
    path.AddRoundedRectangle({static_cast<double>(frame.left), static_cast<double>(frame.top),
                              static_cast<double>(frame.right), static_cast<double>(frame.bottom)},
                             radiusX, radiusY);
}

CDeviceRegion CRoundedFrame::WholePixels(const PixelRect& within) const
{
    const PixelRect seen = Intersect(frame, within);
    CDeviceRegion pixels;
    for (std::int32_t y = seen.top; y < seen.bottom; ++y) {
        const double middle = y + 0.5;
        const double depth = radiusY - std::min(middle - frame.top, frame.bottom - middle);
        std::int32_t away = 0; // of the row's ends from the frame's sides
        if (depth > 0) {
            const double part = depth / radiusY;
            away = RoundHalfAway(radiusX * (1 - std::sqrt(std::max(1 - part * part, 0.0))));
        }
        pixels.Union(Intersect(within, {frame.left + away, y, frame.right - away, y + 1}));
    }
    return pixels;
}

} // namespace Kesto
