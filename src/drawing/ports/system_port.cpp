#include "drawing/ports/system_port.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

std::int32_t Near(std::int32_t pixel)
{
    return std::clamp(pixel, -kFarthestPixel, kFarthestPixel);
}

} // namespace

CSystemPort::CSystemPort() = default;

void CSystemPort::SetSurface(const Platform::Bitmap* bitmap, const PixelPoint& size)
{
    fSurface = bitmap;
    fSurfaceSize = bitmap != nullptr ? size : PixelPoint{};
    fCanvas.reset();
    ResetClip();
}

void CSystemPort::SetScaleFactor(double scale)
{
    fScale = UsableScale(scale);
    fDeviceFont.reset();
}

Rect CSystemPort::GetClientRect() const
{
    return {0.0, 0.0, fSurfaceSize.x / fScale, fSurfaceSize.y / fScale};
}

Point CSystemPort::ClientToScreen(const Point& units) const
{
    return {units.x * fScale, units.y * fScale};
}

void CSystemPort::SetWindowOrigin(const Point& origin)
{
    fState.windowOrigin = origin;
    fState.brushOrigin = origin;
}

CPixelSurface CSystemPort::Pixels() const
{
    return fSurface != nullptr ? SurfaceOf(*fSurface) : CPixelSurface{};
}

PixelPoint CSystemPort::ToPixels(const Point& units) const
{
    return {Near(ToDevice(units.x + fState.windowOrigin.x, fScale)),
            Near(ToDevice(units.y + fState.windowOrigin.y, fScale))};
}

PixelRect CSystemPort::ToPixels(const Rect& units) const
{
    const PixelPoint corner = ToPixels(Point{units.left, units.top});
    const PixelPoint end = ToPixels(Point{units.right, units.bottom});
    return {corner.x, corner.y, end.x, end.y};
}

CDeviceRegion CSystemPort::ToPixels(const CBRVRegion& units) const
{
    CDeviceRegion pixels;
    for (const Rect& rect : units.GetRects())
        pixels.Union(ToPixels(rect));
    return pixels;
}

Platform::PathPoint CSystemPort::ToPath(const Point& units) const
{
    constexpr double kFarthest = kFarthestPixel;
    return {std::clamp((units.x + fState.windowOrigin.x) * fScale, -kFarthest, kFarthest),
            std::clamp((units.y + fState.windowOrigin.y) * fScale, -kFarthest, kFarthest)};
}

CDeviceRegion& CSystemPort::ChangeClip()
{
    fCanvas.reset();
    return fState.clip;
}

Platform::Canvas& CSystemPort::ClippedCanvas()
{
    if (!fCanvas) {
        static const Platform::Bitmap none;
        fCanvas.emplace(fSurface != nullptr ? *fSurface : none);
        fCanvas->SetClip(fState.clip.GetRects());
    }
    return *fCanvas;
}

void CSystemPort::ResetClip()
{
    ChangeClip() = CDeviceRegion(PixelRect{0, 0, fSurfaceSize.x, fSurfaceSize.y});
}

void CSystemPort::SetDeviceClip(const CDeviceRegion& pixels)
{
    ChangeClip() = pixels;
    fState.clip.Intersect(PixelRect{0, 0, fSurfaceSize.x, fSurfaceSize.y});
}

void CSystemPort::SetClip(const CBRVRegion& units)
{
    SetDeviceClip(ToPixels(units));
}

void CSystemPort::IntersectClip(const CBRVRegion& units)
{
    ChangeClip().Intersect(ToPixels(units));
}

void CSystemPort::IntersectClip(const Rect& units)
{
    ChangeClip().Intersect(ToPixels(units));
}

CBRVRegion CSystemPort::GetClip() const
{
    CBRVRegion units = ToUnits(fState.clip, fScale);
    units.Move(-fState.windowOrigin.x, -fState.windowOrigin.y);
    return units;
}

bool CSystemPort::IsInClip(const Rect& units) const
{
    return !units.IsEmpty() && fState.clip.Intersects(ToPixels(units));
}

void CSystemPort::SetFont(const CFont& font)
{
    if (font == fState.font)
        return;
    fState.font = font;
    fDeviceFont.reset();
}

void CSystemPort::SetFontScale(double scale)
{
    if (UsableScale(scale) == fState.fontScale)
        return;
    fState.fontScale = UsableScale(scale);
    fDeviceFont.reset();
}

void CSystemPort::SaveState()
{
    fSaved.push_back(fState);
}

void CSystemPort::RestoreState()
{
    if (fSaved.empty())
        return;
    fState = std::move(fSaved.back());
    fSaved.pop_back();
    fCanvas.reset();
    fDeviceFont.reset();
}

void CSystemPort::ResetTools()
{
    CState defaults;
    defaults.windowOrigin = fState.windowOrigin;
    defaults.brushOrigin = fState.windowOrigin;
    defaults.clip = std::move(fState.clip);
    fState = std::move(defaults);
    fDeviceFont.reset();
}

} // namespace Kesto
