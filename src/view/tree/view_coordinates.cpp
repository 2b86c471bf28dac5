// The view's own space, its parent's, the port's and the screen's.
#include "view/tree/context.h"

namespace Kesto {
namespace {

Point Moved(const Point& point, const Point& by)
{
    return {point.x + by.x, point.y + by.y};
}

PixelPoint Moved(const PixelPoint& point, const Point& by)
{
    return {RoundHalfAway(point.x + by.x), RoundHalfAway(point.y + by.y)};
}

Rect Moved(const Rect& rect, const Point& by)
{
    return {rect.left + by.x, rect.top + by.y, rect.right + by.x, rect.bottom + by.y};
}

// Keeps the size, but at the ends of 32 bits.
PixelRect Moved(const PixelRect& rect, const Point& by)
{
    const PixelPoint corner = Moved(PixelPoint{rect.left, rect.top}, by);
    return {corner.x, corner.y, RoundHalfAway(corner.x + (1.0 * rect.right - rect.left)),
            RoundHalfAway(corner.y + (1.0 * rect.bottom - rect.top))};
}

CBRVRegion Moved(CBRVRegion region, const Point& by)
{
    region.Move(by.x, by.y);
    return region;
}

template <class Corner>
Point CornerOf(const Corner& rect)
{
    return {1.0 * rect.left, 1.0 * rect.top};
}

Point Back(const Point& by)
{
    return {-by.x, -by.y};
}

// What carries a shape with this corner to where the corner belongs.
Point Way(const Point& from, const Point& to)
{
    return {to.x - from.x, to.y - from.y};
}

// Whole numbers are rounded after the multiplication.
PixelPoint Rounded(const Point& point)
{
    return {RoundHalfAway(point.x), RoundHalfAway(point.y)};
}

Point Doubles(const PixelPoint& point)
{
    return {1.0 * point.x, 1.0 * point.y};
}

Point ScreenOf(const CContext* context, const Point& port)
{
    if (context == nullptr)
        return port;
    const double scale = context->GetScaleFactor();
    const PixelPoint corner = context->GetScreenPosition();
    return {port.x * scale + corner.x, port.y * scale + corner.y};
}

Point PortOf(const CContext* context, const Point& screen)
{
    if (context == nullptr)
        return screen;
    const double scale = context->GetScaleFactor();
    const PixelPoint corner = context->GetScreenPosition();
    return {(screen.x - corner.x) / scale, (screen.y - corner.y) / scale};
}

} // namespace

Point CView::GetPortOffset() const
{
    return {};
}

Point CView::ParentOffset() const
{
    return {fOrigin.x - fBounds.left, fOrigin.y - fBounds.top};
}

Point CView::LocalToParent(const Point& local) const
{
    return Moved(local, ParentOffset());
}
PixelPoint CView::LocalToParent(const PixelPoint& local) const
{
    return Moved(local, ParentOffset());
}
Rect CView::LocalToParent(const Rect& local) const
{
    return Moved(local, ParentOffset());
}
PixelRect CView::LocalToParent(const PixelRect& local) const
{
    return Moved(local, ParentOffset());
}
CBRVRegion CView::LocalToParent(const CBRVRegion& local) const
{
    return Moved(local, ParentOffset());
}

Point CView::ParentToLocal(const Point& parent) const
{
    return Moved(parent, Back(ParentOffset()));
}
PixelPoint CView::ParentToLocal(const PixelPoint& parent) const
{
    return Moved(parent, Back(ParentOffset()));
}
Rect CView::ParentToLocal(const Rect& parent) const
{
    return Moved(parent, Back(ParentOffset()));
}
PixelRect CView::ParentToLocal(const PixelRect& parent) const
{
    return Moved(parent, Back(ParentOffset()));
}
CBRVRegion CView::ParentToLocal(const CBRVRegion& parent) const
{
    return Moved(parent, Back(ParentOffset()));
}

Point CView::LocalToPort(const Point& local) const
{
    return Moved(local, GetPortOffset());
}
PixelPoint CView::LocalToPort(const PixelPoint& local) const
{
    return Moved(local, GetPortOffset());
}
Rect CView::LocalToPort(const Rect& local) const
{
    return Moved(local, GetPortOffset());
}
PixelRect CView::LocalToPort(const PixelRect& local) const
{
    return Moved(local, GetPortOffset());
}
CBRVRegion CView::LocalToPort(const CBRVRegion& local) const
{
    return Moved(local, GetPortOffset());
}

Point CView::PortToLocal(const Point& port) const
{
    return Moved(port, Back(GetPortOffset()));
}
PixelPoint CView::PortToLocal(const PixelPoint& port) const
{
    return Moved(port, Back(GetPortOffset()));
}
Rect CView::PortToLocal(const Rect& port) const
{
    return Moved(port, Back(GetPortOffset()));
}
PixelRect CView::PortToLocal(const PixelRect& port) const
{
    return Moved(port, Back(GetPortOffset()));
}
CBRVRegion CView::PortToLocal(const CBRVRegion& port) const
{
    return Moved(port, Back(GetPortOffset()));
}

Point CView::LocalToGlobal(const Point& local) const
{
    return ScreenOf(fContext, LocalToPort(local));
}
PixelPoint CView::LocalToGlobal(const PixelPoint& local) const
{
    return Rounded(LocalToGlobal(Doubles(local)));
}
Rect CView::LocalToGlobal(const Rect& local) const
{
    return Moved(local, Way(CornerOf(local), LocalToGlobal(CornerOf(local))));
}
PixelRect CView::LocalToGlobal(const PixelRect& local) const
{
    return Moved(local, Way(CornerOf(local), LocalToGlobal(CornerOf(local))));
}
CBRVRegion CView::LocalToGlobal(const CBRVRegion& local) const
{
    const Point corner = CornerOf(local.GetBounds());
    return Moved(local, Way(corner, LocalToGlobal(corner)));
}

Point CView::GlobalToLocal(const Point& global) const
{
    return PortToLocal(PortOf(fContext, global));
}
PixelPoint CView::GlobalToLocal(const PixelPoint& global) const
{
    return Rounded(GlobalToLocal(Doubles(global)));
}
Rect CView::GlobalToLocal(const Rect& global) const
{
    return Moved(global, Way(CornerOf(global), GlobalToLocal(CornerOf(global))));
}
PixelRect CView::GlobalToLocal(const PixelRect& global) const
{
    return Moved(global, Way(CornerOf(global), GlobalToLocal(CornerOf(global))));
}
CBRVRegion CView::GlobalToLocal(const CBRVRegion& global) const
{
    const Point corner = CornerOf(global.GetBounds());
    return Moved(global, Way(corner, GlobalToLocal(corner)));
}

PixelRect CView::GetDeviceRect() const
{
    return ToDevice(GetFramePort(), GetScale());
}

PixelRect CView::GetGlobalRect() const
{
    if (fContext == nullptr)
        return GetDeviceRect();
    const PixelPoint corner = fContext->GetScreenPosition();
    return Moved(GetDeviceRect(), Doubles(corner));
}

double CView::GetScale() const
{
    return fContext != nullptr ? fContext->GetScaleFactor() : 1.0;
}

CSystemPort* CView::GetPort() const
{
    return fContext != nullptr ? fContext->GetDrawTarget().port : nullptr;
}

} // namespace Kesto
