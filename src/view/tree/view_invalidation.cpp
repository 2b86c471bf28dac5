// What is to be drawn again.
#include "view/tree/context.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

namespace Kesto {
namespace {

int gScaleChanges = 0; // calls of DoScaleChanged on the stack

} // namespace

// The pixels of an area of this view that no parent cuts off. Siblings in front count for nothing:
// what is too much is drawn over by them.
CDeviceRegion CView::CutToView(const CBRVRegion& local) const
{
    if (fContext == nullptr || !IsVisible())
        return {};
    CBRVRegion region = local;
    region.Intersect(fBounds);
    const CView* view = this;
    for (const CView* parent = GetParent(); parent != nullptr && !region.IsEmpty();
         view = parent, parent = parent->GetParent()) {
        region = view->LocalToParent(region);
        region.Intersect(parent->fBounds);
    }
    return ToDevice(region, GetScale());
}

void CView::Invalidate(const Rect& rect, bool now)
{
    Invalidate(CBRVRegion(rect), now);
}

void CView::Invalidate(const CBRVRegion& region, bool now)
{
    const CDeviceRegion pixels = CutToView(region);
    if (pixels.IsEmpty())
        return;
    fContext->AddInvalid(pixels);
    if (now)
        fContext->UpdateNow();
}

void CView::InvalidateAll(bool now)
{
    Invalidate(fBounds, now);
}

void CView::InvalidateVisible(bool now)
{
    Invalidate(GetVisibleLocalRegion(), now);
}

void CView::InvalidateClip(bool now)
{
    Invalidate(GetClipRegion(), now);
}

void CView::InvalidateRect(const Rect& inParent, bool now)
{
    Invalidate(ParentToLocal(inParent), now);
}

void CView::Validate(const Rect& rect)
{
    Validate(CBRVRegion(rect));
}

void CView::Validate(const CBRVRegion& region)
{
    const CDeviceRegion pixels = CutToView(region);
    if (!pixels.IsEmpty())
        fContext->RemoveInvalid(pixels);
}

void CView::ValidateAll()
{
    Validate(fBounds);
}

void CView::ValidateVisible()
{
    Validate(GetVisibleLocalRegion());
}

void CView::ValidateRect(const Rect& inParent)
{
    Validate(ParentToLocal(inParent));
}

void CView::Update()
{
    if (fContext != nullptr)
        fContext->UpdateNow();
}

void CView::DoScaleChanged(bool invalidate)
{
    struct Nesting {
        Nesting() { ++gScaleChanges; }
        ~Nesting() { --gScaleChanges; }
    };
    const CViewHold hold(*this);
    {
        const Nesting nesting;
        CChildWalk walk(*this);
        while (CPane* const child = walk.Next())
            child->DoScaleChanged(invalidate);
        if (!hold.IsOver())
            UIScaleChanged();
    }
    // The view in which the change began covers all below it.
    if (gScaleChanges == 0 && invalidate && !hold.IsOver())
        InvalidateAll();
}

} // namespace Kesto
