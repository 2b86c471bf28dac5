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

void CRoundedFrame::AddTo(Platform::Path& path) const
{
    if (frame.IsEmpty())
        return;
    path.AddRoundedRectangle({static_cast<double>(frame.left), static_cast<double>(frame.top),
                              static_cast<double>(frame.right), static_cast<double>(frame.bottom)},
                             radiusX, radiusY);
}

CDeviceRegion CRoundedFrame::WholePixels() const
{
    CDeviceRegion pixels(frame);
    const auto corner = static_cast<std::int32_t>(std::ceil(radiusY));
    for (std::int32_t row = 0; row < corner; ++row) {
        const double part = (radiusY - row - 0.5) / radiusY; // how far from the ellipse's middle
        const double width = std::sqrt(std::max(1 - part * part, 0.0)) * radiusX;
        const std::int32_t away = RoundHalfAway(radiusX - width);
        for (const std::int32_t y : {frame.top + row, frame.bottom - 1 - row}) {
            pixels.Subtract(PixelRect{frame.left, y, frame.left + away, y + 1});
            pixels.Subtract(PixelRect{frame.right - away, y, frame.right, y + 1});
        }
    }
    return pixels;
}

} // namespace Kesto
