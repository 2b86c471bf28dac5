// The binding engine: how a view follows its parent's edges, and its children follow its image.
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <algorithm>

namespace Kesto {
namespace {

// One axis of a binding word, with the bits of the x axis.
std::uint32_t AxisBits(std::uint32_t binding, bool isX)
{
    return isX ? binding : binding >> 1;
}

// The vertical bits follow the horizontal ones, but of the edges: Left, Top, Right, Bottom.
static_assert(kBind_YSizeable == kBind_XSizeable << 1 && kBind_YCenter == kBind_XCenter << 1 &&
              kBind_Top == kBind_Left << 1 && kBind_Bottom == kBind_Right << 1 &&
              kBind_YScrollable == kBind_XScrollable << 1 && kBind_PinTop == kBind_PinLeft << 1 &&
              kBind_PinBottom == kBind_PinRight << 1 && kBind_LimitTop == kBind_LimitLeft << 1 &&
              kBind_LimitBottom == kBind_LimitRight << 1);

// The two edges of a rectangle on an axis.
struct Span {
    double low;
    double high;

    double Size() const { return high - low; }
    double Middle() const { return (low + high) / 2.0; }
    void Move(double by)
    {
        low += by;
        high += by;
    }
};

Span XOf(const Rect& rect)
{
    return {rect.left, rect.right};
}

Span YOf(const Rect& rect)
{
    return {rect.top, rect.bottom};
}

Rect RectOf(const Span& x, const Span& y)
{
    return {x.low, y.low, x.high, y.high};
}

Rect Difference(const Rect& now, const Rect& before)
{
    return {now.left - before.left, now.top - before.top, now.right - before.right,
            now.bottom - before.bottom};
}

// Between the parent's edges and its middle: `delta` is how the parent's edges moved, `frame` where
// they are now. A side's share is how much the half between the middle and that side has grown.
Span PlaceAtMiddle(std::uint32_t bits, const Span& edges, const Span& delta, const Span& frame)
{
    const double middle = frame.Middle();
    const Span before{frame.low - delta.low, frame.high - delta.high};
    const double half = before.Middle();
    double lowShare = (middle - frame.low) - (half - before.low);
    double highShare = (frame.high - middle) - (before.high - half);
    if ((bits & kBind_XSizeable) == 0)
        lowShare = highShare = 0.0;
    if ((bits & kBind_Left) != 0)
        return {middle - (edges.Size() + lowShare), middle};
    if ((bits & kBind_Right) != 0)
        return {middle, middle + edges.Size() + highShare};
    const double size = edges.Size() + lowShare + highShare;
    return {middle - size / 2.0, middle - size / 2.0 + size};
}

Span PlaceAtEdges(std::uint32_t bits, Span edges, const Span& delta)
{
    const bool low = (bits & kBind_Left) != 0;
    const bool high = (bits & kBind_Right) != 0;
    if ((bits & kBind_XSizeable) == 0) {
        edges.Move(low ? delta.low : high ? delta.high : 0.0);
        return edges;
    }
    // An edge that is bound moves alone; with none both do, and the lower one wins.
    if (low || !high)
        edges.low += delta.low;
    if (!low)
        edges.high += delta.high;
    return edges;
}

Span PlaceAxis(std::uint32_t bits, const Span& edges, const Span& delta, const Span& frame)
{
    return (bits & kBind_XCenter) != 0 ? PlaceAtMiddle(bits, edges, delta, frame)
                                       : PlaceAtEdges(bits, edges, delta);
}

// How bounds follow the edges in the parent.
void PinAxis(std::uint32_t bits, Span& bounds, const Span& delta)
{
    const double growth = delta.Size();
    if ((bits & kBind_PinRight) == 0)
        bounds.high += growth;
    else if ((bits & kBind_PinLeft) == 0)
        bounds.low -= growth;
    else
        bounds = {bounds.low + delta.low, bounds.high + delta.high};
}

// Where an axis may scroll to.
Span LimitsOf(std::uint32_t bits, const Span& image, const Span& bounds)
{
    const double excess = bounds.Size() - image.Size();
    if (excess <= 0.0)
        return image;
    const double low = (bits & kBind_LimitLeft) != 0    ? 0.0
                       : (bits & kBind_LimitRight) != 0 ? excess
                                                        : excess / 2.0;
    return {image.low - low, image.low - low + bounds.Size()};
}

// How far bounds must move to lie within limits; the lower side wins.
double PullOf(const Span& bounds, const Span& limits)
{
    if (bounds.low < limits.low)
        return limits.low - bounds.low;
    if (bounds.high > limits.high)
        return std::max(limits.high - bounds.high, limits.low - bounds.low);
    return 0.0;
}

void PinImageAxis(std::uint32_t bits, bool isBig, Span& image, Span& limits, Span& bounds)
{
    if ((bits & kBind_XScrollable) == 0) {
        image = limits = bounds;
        return;
    }
    limits = LimitsOf(bits, image, bounds);
    const double pull = PullOf(bounds, limits);
    if (!isBig) {
        bounds.Move(pull);
        return;
    }
    limits.Move(-pull);
    image.Move(-pull);
}

} // namespace

Rect CView::GetBindingFrame() const
{
    const CView* const parent = GetParent();
    return parent != nullptr ? parent->fImage : Rect{};
}

void CView::ParentResized(const CEdgeDeltas& delta)
{
    Place(delta);
}

void CView::Place(const CEdgeDeltas& delta)
{
    const Rect before = GetFrame();
    const Rect frame = GetBindingFrame();
    const Rect now =
        RectOf(PlaceAxis(AxisBits(fBinding, true), XOf(before), XOf(delta), XOf(frame)),
               PlaceAxis(AxisBits(fBinding, false), YOf(before), YOf(delta), YOf(frame)));
    MoveEdges(Difference(now, before));
}

void CView::MoveEdges(const CEdgeDeltas& delta)
{
    fOrigin.x += delta.left;
    fOrigin.y += delta.top;
    BoundsChanged(delta);
}

void CView::BoundsChanged(const CEdgeDeltas& delta)
{
    const CViewHold hold(*this);
    const Rect oldImage = fImage;
    // Its siblings may not follow each other as they did.
    if (CView* const parent = GetParent())
        parent->fRun = ERun::kUnknown;
    if ((fBinding & kBind_PortCoordinates) != 0) {
        // Its zero is the port's, so its bounds tell where it lies there.
        const CView* const parent = GetParent();
        const Point offset = parent != nullptr ? parent->GetPortOffset() : Point{};
        const Point corner{fOrigin.x + offset.x, fOrigin.y + offset.y};
        fBounds = {corner.x, corner.y, corner.x + fBounds.Width() + delta.Width(),
                   corner.y + fBounds.Height() + delta.Height()};
    } else {
        Span x = XOf(fBounds);
        Span y = YOf(fBounds);
        PinAxis(AxisBits(fBinding, true), x, XOf(delta));
        PinAxis(AxisBits(fBinding, false), y, YOf(delta));
        fBounds = RectOf(x, y);
    }
    PinImage();
    ResizeChildren(oldImage);
    if (!hold.IsOver())
        DidResize();
}

void CView::PinImage()
{
    Span x[] = {XOf(fImage), XOf(fScrollLimits), XOf(fBounds)};
    Span y[] = {YOf(fImage), YOf(fScrollLimits), YOf(fBounds)};
    PinImageAxis(AxisBits(fBinding, true), HasBigCoordinates(), x[0], x[1], x[2]);
    PinImageAxis(AxisBits(fBinding, false), HasBigCoordinates(), y[0], y[1], y[2]);
    fImage = RectOf(x[0], y[0]);
    fScrollLimits = RectOf(x[1], y[1]);
    fBounds = RectOf(x[2], y[2]);
}

void CView::ResizeChildren(const Rect& oldImage)
{
    const Rect delta = Difference(fImage, oldImage);
    CChildWalk walk(*this);
    while (CPane* const child = walk.Next())
        child->ParentResized(delta);
}

void CView::SetFrame(const Rect& frame)
{
    const Rect before = GetFrame();
    if (frame == before)
        return;
    const CViewHold hold(*this);
    InvalidateAll();
    MoveEdges(Difference(frame, before));
    if (!hold.IsOver())
        InvalidateAll();
}

void CView::MoveBy(double dx, double dy)
{
    const Rect before = GetFrame();
    SetFrame({before.left + dx, before.top + dy, before.right + dx, before.bottom + dy});
}

void CView::MoveBoundsBy(double dx, double dy)
{
    for (Rect* const rect : {&fBounds, &fImage, &fScrollLimits})
        *rect = {rect->left + dx, rect->top + dy, rect->right + dx, rect->bottom + dy};
    const CViewHold hold(*this);
    PortOffsetChild();
    if (!hold.IsOver())
        InvalidateAll();
}

void CView::SetSize(double width, double height)
{
    const CSizeLimits limits = GetSizeLimits();
    width = std::max(std::min(width, limits.maximum.x), limits.minimum.x);
    height = std::max(std::min(height, limits.maximum.y), limits.minimum.y);
    const Rect before = GetFrame();
    SetFrame({before.left, before.top, before.left + width, before.top + height});
}

} // namespace Kesto
