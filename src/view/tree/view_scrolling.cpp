// Scrolling: the position, the ways to it, and what happens to the pixels.
#include "view/tree/context.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

constexpr double kSmallest = 1e-7; // below this a move is none

Rect Moved(const Rect& rect, double dx, double dy)
{
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

// A position between the two ends of an axis that scrolls over `room`.
double Pinned(double position, double room)
{
    return std::max(0.0, std::min(position, room));
}

bool IsWhole(double pixels)
{
    return std::abs(pixels - std::round(pixels)) < kSmallest;
}

// The least move that brings [low, high) into [from, to); the low end first.
double MoveInto(double low, double high, double from, double to)
{
    if (low < from)
        return low - from;
    return high > to ? std::min(high - to, low - from) : 0.0;
}

} // namespace

Point CView::GetImageOrigin() const
{
    return {fBounds.left - fScrollLimits.left, fBounds.top - fScrollLimits.top};
}

void CView::SetImageExtent(double width, double height)
{
    const CViewHold hold(*this);
    const Rect oldImage = fImage;
    if (IsXScrollable())
        fImage.right = fImage.left + width;
    if (IsYScrollable())
        fImage.bottom = fImage.top + height;
    PinImage();
    ResizeChildren(oldImage);
    if (hold.IsOver())
        return;
    DidResize();
    if (!hold.IsOver())
        InvalidateAll();
}

Point CView::PinImagePoint(const Point& position) const
{
    return {Pinned(position.x, fScrollLimits.Width() - fBounds.Width()),
            Pinned(position.y, fScrollLimits.Height() - fBounds.Height())};
}

Point CView::PinImageOffset(const Point& offset) const
{
    const Point at = GetImageOrigin();
    const Point to = PinImagePoint({at.x + offset.x, at.y + offset.y});
    return {to.x - at.x, to.y - at.y};
}

Rect CView::PinInBounds(const Rect& rect) const
{
    const double dx = MoveInto(rect.left, rect.right, fBounds.left, fBounds.right);
    const double dy = MoveInto(rect.top, rect.bottom, fBounds.top, fBounds.bottom);
    return Moved(rect, -dx, -dy);
}

void CView::ScrollBy(double dx, double dy, bool notify, bool now)
{
    // Not a number scrolls nothing either.
    if (!(std::abs(dx) >= kSmallest || std::abs(dy) >= kSmallest))
        return;
    const CViewHold hold(*this);
    const bool isSeen = fContext != nullptr && IsVisible();
    if (isSeen)
        ScrollSeen(dx, dy);
    if (HasBigCoordinates()) {
        const Rect oldImage = fImage;
        fScrollLimits = Moved(fScrollLimits, -dx, -dy);
        fImage = Moved(fImage, -dx, -dy);
        ResizeChildren(oldImage);
    } else {
        fBounds = Moved(fBounds, dx, dy);
        PortOffsetChild();
    }
    if (!hold.IsOver() && !isSeen)
        DidResize();
    if (!hold.IsOver() && notify)
        ScrollChanged(fImage, GetImageOrigin(), {fImage.Width(), fImage.Height()},
                      {fBounds.Width(), fBounds.Height()});
    if (!hold.IsOver() && now)
        Update();
}

// Before the numbers change: moves what is seen, and what of it is invalid, and makes the rest
// invalid. Pixels can only be moved by whole ones.
void CView::ScrollSeen(double dx, double dy)
{
    const double scale = GetScale();
    const CBRVRegion seen = GetVisibleRegion();
    const CDeviceRegion pixels = ToDevice(seen, scale);
    const bool isFar = std::abs(dx) >= fBounds.Width() || std::abs(dy) >= fBounds.Height();
    CContext& context = *fContext;
    if (isFar || !IsWhole(dx * scale) || !IsWhole(dy * scale) || !context.CanScrollPixels()) {
        context.AddInvalid(pixels);
        return;
    }
    CDeviceRegion stale = context.GetInvalid();
    stale.Intersect(pixels);
    stale.Move(-RoundHalfAway(dx * scale), -RoundHalfAway(dy * scale));
    stale.Intersect(pixels);
    CDeviceRegion uncovered;
    context.SetDrawClip(pixels);
    context.SetWindowOrigin({});
    context.ScrollPixels(GetFramePort(), -dx, -dy, uncovered);
    context.ResetClip();
    context.PixelsScrolled(pixels);
    uncovered.Union(stale);
    context.AddInvalid(uncovered);
    if (HasState(kState_ChunkyScroll))
        InvalidateScrollEdges(std::abs(dx), std::abs(dy));
}

// The strips at both ends of each axis that scrolls, as wide as the move.
void CView::InvalidateScrollEdges(double dx, double dy)
{
    const Rect& all = fBounds;
    const Rect strips[] = {{all.left, all.top, all.left + dx, all.bottom},
                           {all.right - dx, all.top, all.right, all.bottom},
                           {all.left, all.top, all.right, all.top + dy},
                           {all.left, all.bottom - dy, all.right, all.bottom}};
    for (const Rect& strip : strips)
        if (!strip.IsEmpty())
            Invalidate(strip);
}

void CView::ScrollTo(const Point& position)
{
    const Point at = GetImageOrigin();
    const Point by = PinImageOffset({position.x - at.x, position.y - at.y});
    ScrollBy(by.x, by.y, true, false);
}

void CView::ScrollToImage(const Point& image)
{
    ScrollTo({image.x - fScrollLimits.left, image.y - fScrollLimits.top});
}

void CView::CenterRectInView(const Rect& rect)
{
    const Point by =
        PinImageOffset({(rect.left + rect.right - fBounds.left - fBounds.right) / 2.0,
                        (rect.top + rect.bottom - fBounds.top - fBounds.bottom) / 2.0});
    ScrollBy(by.x, by.y, true, false);
}

Point CView::MoveToRevealRect(const Rect& rect) const
{
    return PinImageOffset({MoveInto(rect.left, rect.right, fBounds.left, fBounds.right),
                           MoveInto(rect.top, rect.bottom, fBounds.top, fBounds.bottom)});
}

void CView::RevealRect(const Rect& rect)
{
    const Point by = MoveToRevealRect(rect);
    ScrollBy(by.x, by.y, true, false);
}

void CView::ScrollRevealInBounds(const Rect& rect)
{
    const CViewHold hold(*this);
    RevealRect(rect);
    CView* const parent = hold.IsOver() ? nullptr : GetParent();
    if (parent != nullptr)
        parent->ScrollRevealInBounds(LocalToParent(rect));
}

} // namespace Kesto
