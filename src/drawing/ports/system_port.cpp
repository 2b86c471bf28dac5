#include "drawing/ports/system_port.h"

#include <utility>

namespace Kesto {

CSystemPort::CSystemPort() = default;

void CSystemPort::SetSurface(const Platform::Bitmap* bitmap, const PixelPoint& size)
{
    fSurface = bitmap;
    fSurfaceSize = bitmap != nullptr ? size : PixelPoint{};
    ResetClip();
}

void CSystemPort::SetScaleFactor(double scale)
{
    fScale = UsableScale(scale);
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

PixelRect CSystemPort::ToPixels(const Rect& units) const
{
    const Point& origin = fState.windowOrigin;
    return ToDevice(Rect{units.left + origin.x, units.top + origin.y, units.right + origin.x,
                         units.bottom + origin.y},
                    fScale);
}

CDeviceRegion CSystemPort::ToPixels(CBRVRegion units) const
{
    units.Move(fState.windowOrigin.x, fState.windowOrigin.y);
    return ToDevice(units, fScale);
}

void CSystemPort::ResetClip()
{
    fState.clip = CDeviceRegion(PixelRect{0, 0, fSurfaceSize.x, fSurfaceSize.y});
}

void CSystemPort::SetDeviceClip(const CDeviceRegion& pixels)
{
    fState.clip = pixels;
    fState.clip.Intersect(PixelRect{0, 0, fSurfaceSize.x, fSurfaceSize.y});
}

void CSystemPort::SetClip(const CBRVRegion& units)
{
    SetDeviceClip(ToPixels(units));
}

void CSystemPort::IntersectClip(const CBRVRegion& units)
{
    fState.clip.Intersect(ToPixels(units));
}

void CSystemPort::IntersectClip(const Rect& units)
{
    fState.clip.Intersect(ToPixels(units));
}

CBRVRegion CSystemPort::GetClip() const
{
    CBRVRegion units = ToUnits(fState.clip, fScale);
    units.Move(-fState.windowOrigin.x, -fState.windowOrigin.y);
    return units;
}

bool CSystemPort::IsInClip(const Rect& units) const
{
    return fState.clip.Intersects(ToPixels(units));
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
}

void CSystemPort::ResetTools()
{
    CState defaults;
    defaults.windowOrigin = fState.windowOrigin;
    defaults.brushOrigin = fState.windowOrigin;
    defaults.clip = std::move(fState.clip);
    fState = std::move(defaults);
}

} // namespace Kesto
