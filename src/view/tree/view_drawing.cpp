// The order in which a view and its children are drawn, directly and through the buffer.
//
// Areas are device pixels of the context's port, so what siblings share is cut where they meet on
// the screen, whatever their numbers in units.
#include "drawing/frames/widget_skin.h"
#include "view/tree/context.h"
#include "view/tree/draw_buffer.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Kesto {
namespace {

// A child's frame in the port; `offset` is the parent's zero there.
Rect FrameInPort(const CPane& child, const Point& offset)
{
    const Point corner{offset.x + child.GetOrigin().x, offset.y + child.GetOrigin().y};
    return {corner.x, corner.y, corner.x + child.GetBounds().Width(),
            corner.y + child.GetBounds().Height()};
}

// What is left of an area when parts are taken from it in turn. Taking one out of a region looks at
// all of its rectangles, so parts wait until something comes near them, and are taken out together:
// a row of many children costs each of them the same.
class Remainder {
public:
    explicit Remainder(const CDeviceRegion& area) : fRest(area) {}

    // The part of a region that no earlier one has.
    CDeviceRegion Take(CDeviceRegion region)
    {
        if (!Intersect(fAround, region.GetBounds()).IsEmpty())
            Settle();
        region.Intersect(fRest);
        if (!region.IsEmpty()) {
            fAround = Around(region.GetBounds());
            fWaiting.push_back(region);
        }
        return region;
    }

    CDeviceRegion GetRest()
    {
        Settle();
        return fRest;
    }

private:
    PixelRect Around(const PixelRect& more) const
    {
        return fWaiting.empty()
                   ? more
                   : PixelRect{std::min(fAround.left, more.left), std::min(fAround.top, more.top),
                               std::max(fAround.right, more.right),
                               std::max(fAround.bottom, more.bottom)};
    }

    // Joins neighbours first, so that each rectangle is looked at as often as the number can be
    // halved.
    void Settle()
    {
        if (fWaiting.empty())
            return;
        for (std::size_t step = 1; step < fWaiting.size(); step *= 2)
            for (std::size_t i = 0; i + step < fWaiting.size(); i += 2 * step)
                fWaiting[i].Union(fWaiting[i + step]);
        fRest.Subtract(fWaiting.front());
        fWaiting.clear();
        fAround = {};
    }

    CDeviceRegion fRest;
    std::vector<CDeviceRegion> fWaiting; // to be taken out of it
    PixelRect fAround;                   // of all that wait
};

} // namespace

void CView::Draw(const CPaintEvent& event)
{
    if (fContext == nullptr || event.fUpdate.IsEmpty() || !IsVisible())
        return;
    const CViewHold hold(*this);
    const CViewHold contextHold(*fContext);
    if (NeedsBuffer())
        DrawBuffered(event);
    else
        DrawUnbuffered(event);
}

void CView::DrawUnbuffered(const CPaintEvent& event)
{
    const CViewHold hold(*this);
    if (!HasState(kState_DrawParts)) {
        const CDeviceRegion rest = DrawChildrenBefore(event);
        if (!hold.IsOver())
            DrawSelf(rest);
        return;
    }
    DrawSelf(event.fUpdate);
    if (!hold.IsOver())
        DrawChildrenAfter(event);
}

void CView::DrawAllChildren(const CPaintEvent& event)
{
    if (HasState(kState_DrawParts))
        DrawChildrenAfter(event);
    else
        DrawChildrenBefore(event);
}

// The child's part of an area, which loses it. Most children of a large view lie elsewhere, and
// only their rectangles are looked at.
CDeviceRegion CView::TakePart(const CPane& child, const Point& offset, CDeviceRegion& area) const
{
    if (!child.IsVisible())
        return {};
    if (!area.Intersects(ToDevice(FrameInPort(child, offset), GetScale())))
        return {};
    CDeviceRegion part = child.DeviceClip();
    part.Intersect(area);
    area.Subtract(part);
    return part;
}

// Returns what is left for the view. A child that joins or leaves meanwhile is drawn next time.
CDeviceRegion CView::DrawChildrenBefore(const CPaintEvent& event)
{
    Remainder rest(event.fUpdate);
    const CViewHold hold(*this);
    const unsigned stamp = fChildrenStamp;
    const Point offset = GetPortOffset();
    const double scale = GetScale();
    for (CPane* const child : ChildrenNear(event.fUpdate)) {
        if (!child->IsVisible() ||
            !event.fUpdate.Intersects(ToDevice(FrameInPort(*child, offset), scale)))
            continue;
        const CPaintEvent part{rest.Take(child->DeviceClip())};
        if (part.fUpdate.IsEmpty())
            continue;
        child->Draw(part);
        if (hold.IsOver() || fChildrenStamp != stamp)
            break;
    }
    return rest.GetRest();
}

void CView::DrawChildrenAfter(const CPaintEvent& event)
{
    CDeviceRegion rest = event.fUpdate;
    const CViewHold hold(*this);
    const unsigned stamp = fChildrenStamp;
    const Point offset = GetPortOffset();
    std::vector<std::pair<CPane*, CPaintEvent>> parts;
    for (CPane* const child : ChildrenNear(event.fUpdate)) {
        CPaintEvent part{TakePart(*child, offset, rest)};
        if (!part.fUpdate.IsEmpty())
            parts.emplace_back(child, std::move(part));
    }
    while (!parts.empty() && !hold.IsOver() && fChildrenStamp == stamp) {
        parts.back().first->Draw(parts.back().second);
        parts.pop_back();
    }
}

void CView::DrawSelf(CDeviceRegion area)
{
    if (area.IsEmpty() || fContext == nullptr)
        return;
    const CViewHold hold(*this);
    const CPaintEvent event{std::move(area)};
    fContext->SetDrawClip(event.fUpdate);
    SetPortOrigin();
    const CView* const parent = GetParent();
    // A parent that draws first has painted under its children.
    if (!IsOpaque() && parent != nullptr && !parent->HasState(kState_DrawParts))
        EraseBackground();
    DrawInContext(event);
    if (!hold.IsOver())
        DrawFrame();
    if (!hold.IsOver() && DrawsTargetRing() && IsBullseye() && IsActive())
        DrawFocusRing();
    if (!hold.IsOver() && IsDragged())
        DrawHighlight();
}

void CView::DrawInContext(const CPaintEvent& /*event*/)
{
    if (IsOpaque())
        DrawBackground();
}

void CView::DrawFocusRing()
{
    CWidgetSkin::DrawFocusLine(*GetPort(), fBounds);
}

void CView::EraseBackground()
{
    for (CView* view = GetParent(); view != nullptr; view = view->GetParent())
        if (view->IsOpaque()) {
            view->SetPortOrigin();
            view->DrawBackground();
            break;
        }
    SetPortOrigin();
}

// The buffer holds the area with a pixel more on each side, so that what is drawn antialiased at
// its edge has neighbours.
void CView::DrawBuffered(const CPaintEvent& event)
{
    PixelRect held = event.fUpdate.GetBounds();
    held = {held.left - 1, held.top - 1, held.right + 1, held.bottom + 1};
    CContext& context = *fContext;
    CImage* const image =
        CServiceT<CDrawBuffer>::Get()->Take(held.right - held.left, held.bottom - held.top);
    const double scale = GetScale();
    image->SetScaleFactor(scale);
    {
        const CContext::CBuffering buffering(context, *image, {held.left, held.top});
        DrawUnbuffered(event);
    }
    const Rect source{0.0, 0.0, (held.right - held.left) / scale, (held.bottom - held.top) / scale};
    const Rect dest{held.left / scale, held.top / scale, held.right / scale, held.bottom / scale};
    context.SetDrawClip(event.fUpdate);
    context.SetWindowOrigin({});
    image->SetWindowOrigin({});
    context.DrawPort(*image, source, dest);
}

} // namespace Kesto
