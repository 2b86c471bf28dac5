// Which area a view has, draws in, and shows.
#include "view/tree/context.h"
#include "view/tree/pane.h"

namespace Kesto {

CBRVRegion CView::GetLocalRegion() const
{
    return CBRVRegion(fBounds);
}

CBRVRegion CView::GetOwnRegion() const
{
    return LocalToPort(GetLocalRegion());
}

CBRVRegion CView::GetClipRegion() const
{
    return GetLocalRegion();
}

void CView::ExcludeChildren(CBRVRegion& region, const CPane* before) const
{
    for (const CPane* const child : fChildren) {
        if (child == before)
            return;
        if (child->IsVisible() && region.Intersects(child->GetFrame()))
            region.Subtract(child->LocalToParent(child->GetClipRegion()));
    }
}

CBRVRegion CView::GetVisibleRegion() const
{
    return LocalToPort(GetVisibleLocalRegion());
}

// Climbs with the region, in the space of each view on the way, and comes back down.
CBRVRegion CView::GetVisibleLocalRegion() const
{
    CBRVRegion region;
    if (!IsVisible())
        return region;
    region = GetClipRegion();
    const CView* top = this;
    for (const CView* parent = GetParent(); parent != nullptr && !region.IsEmpty();
         parent = parent->GetParent()) {
        region = top->LocalToParent(region);
        region.Intersect(parent->GetClipRegion());
        parent->ExcludeChildren(region, static_cast<const CPane*>(top));
        top = parent;
    }
    const Point from = top->GetPortOffset();
    const Point to = GetPortOffset();
    region.Move(from.x - to.x, from.y - to.y);
    return region;
}

bool CView::NeedsBuffer() const
{
    return IsDrawBuffer() && fContext != nullptr && !fContext->IsDrawingInBuffer();
}

CDeviceRegion CView::DeviceClip() const
{
    return ToDevice(LocalToPort(GetClipRegion()), GetScale());
}

} // namespace Kesto
