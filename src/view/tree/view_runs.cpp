// Which children lie near a place, without a look at each of them where they follow each other
// along an axis, as the rows of a form do.
#include "view/tree/pane.h"

#include <algorithm>
#include <limits>

namespace Kesto {
namespace {

// So few are as soon looked at.
constexpr std::size_t kFewChildren = 16;

// The edges of a child on an axis, in its parent.
struct Extent {
    double low;
    double high;
};

Extent ExtentOf(const CView& child, bool isX)
{
    const double low = isX ? child.GetOrigin().x : child.GetOrigin().y;
    return {low, low + (isX ? child.GetBounds().Width() : child.GetBounds().Height())};
}

// Whether each child begins where the one before it ends, or later. What is no number is in no run.
bool IsRun(std::span<CPane* const> children, bool isX)
{
    double end = -std::numeric_limits<double>::infinity();
    return std::ranges::all_of(children, [&](const CView* child) {
        const Extent extent = ExtentOf(*child, isX);
        const bool follows = extent.low >= end && extent.high >= extent.low;
        end = extent.high;
        return follows;
    });
}

} // namespace

// A unit more on each side, so that no rounding loses a child.
std::span<CPane* const> CView::ChildrenNear(const Rect& local) const
{
    const std::span<CPane* const> all(fChildren);
    if (all.size() <= kFewChildren)
        return all;
    if (fRun == ERun::kUnknown)
        fRun = IsRun(all, false) ? ERun::kDown : IsRun(all, true) ? ERun::kAcross : ERun::kNone;
    if (fRun == ERun::kNone)
        return all;
    const bool isX = fRun == ERun::kAcross;
    const double low = (isX ? local.left : local.top) - 1.0;
    const double high = (isX ? local.right : local.bottom) + 1.0;
    const auto first = std::ranges::partition_point(
        all, [&](const CView* child) { return ExtentOf(*child, isX).high < low; });
    const auto last = std::find_if(
        first, all.end(), [&](const CView* child) { return ExtentOf(*child, isX).low > high; });
    return {first, last};
}

std::span<CPane* const> CView::ChildrenNear(const CDeviceRegion& area) const
{
    if (fChildren.size() <= kFewChildren)
        return fChildren;
    return ChildrenNear(
        PortToLocal(ToUnits(CDeviceRegion(area.GetBounds()), GetScale()).GetBounds()));
}

} // namespace Kesto
