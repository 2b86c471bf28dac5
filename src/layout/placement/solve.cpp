#include "layout/placement/solve.h"

#include "layout/placement/pinned.h"
#include "layout/placement/view_proxy.h"

#include <algorithm>

namespace Kesto {

namespace {

// Moves a child along the run of a row or column by the share of the run that lies before it: 0 at
// the start, all of `extra` at the end. `before` and `room` are measured between the margins; a
// room of 0 gives an infinity or no number, which pinning takes care of.
std::int32_t Proportional(std::int64_t position, std::int64_t before, std::int64_t room,
                          std::int64_t extra)
{
    return PinnedRound(static_cast<double>(before) / static_cast<double>(room) *
                           static_cast<double>(extra) +
                       static_cast<double>(position));
}

// What each of those who share gets; pixels that can't be shared stay at the end.
std::int64_t ShareOf(std::int64_t free, std::int64_t used, std::ptrdiff_t sharers)
{
    return sharers > 0 && free > used ? (free - used) / sharers : 0;
}

// The first of the children at the end that are all aligned to the end. Those are placed from the
// far edge; a child so aligned that others follow lies in the run, as if it led.
ViewProxyList::iterator TrailingChildren(ViewProxyList& children,
                                         std::int32_t CViewProxy::*alignment)
{
    const auto notTrailing =
        std::find_if(children.rbegin(), children.rend(),
                     [&](const auto& child) { return (*child).*alignment != kAlign_InTrailing; });
    return notTrailing.base();
}

// The right margin and outset don't enter: with equal ones nobody sees the difference, and layouts
// with unequal ones are tuned to this.
void PlaceAtRightEnd(const CViewProxy& p, CViewProxy& c)
{
    c.fLeft = Pinned(std::int64_t{p.fWidth} - c.fWidth - p.fMarginLeft - p.fLeftOutset);
}

void CentreHorizontally(const CViewProxy& p, CViewProxy& c)
{
    c.fLeft = Pinned(p.fLeftOutset + (std::int64_t{p.fWidth} - c.fWidth) / 2);
}

// In a column, and in a stack, which has no label column.
void AlignHorizontally(const CViewProxy& p, CViewProxy& c, bool hasLabel)
{
    const std::int64_t label = std::int64_t{p.fLabelWidth} - p.fMarginLeft;
    const std::int64_t start = std::int64_t{p.fMarginLeft} + p.fLeftOutset;
    switch (c.fHorizontal) {
    case 0:
    case kAlign_InLeading:
        if (hasLabel && c.fHasLabel) {
            c.fWidth = Pinned(c.fWidth + label - c.fLabelWidth);
            c.fLabelWidth = Pinned(label);
        }
        c.fLeft = Pinned(c.fInset + start);
        return;
    case kAlign_InFill:
        c.fWidth = Pinned(std::int64_t{p.fWidth} - p.fMarginRight - p.fMarginLeft);
        if (hasLabel)
            c.fLabelWidth = Pinned(label);
        c.fLeft = Pinned(start);
        return;
    case kAlign_InCenter:
    case kAlign_InProportional:
        CentreHorizontally(p, c);
        return;
    case kAlign_InTrailing:
        PlaceAtRightEnd(p, c);
        return;
    default:
        return;
    }
}

// In a column the default alignment shares in the free height as a centred child does.
std::int64_t ShareInColumn(const CViewProxy& p)
{
    const std::ptrdiff_t sharers = std::ranges::count_if(p.fChildren, [](const auto& child) {
        return child->fVertical >= 0 && child->fVertical <= kAlign_InProportional;
    });
    const std::int64_t free = p.fHeight - p.SpacingSum() - p.fMarginBottom - p.fMarginTop;
    return ShareOf(free, p.fChildHeightSum, sharers);
}

// Places a child of a column at or below `y`, and returns the share that `y` moves on by beside
// the child's height.
std::int64_t PlaceInColumn(const CViewProxy& p, CViewProxy& c, std::int64_t y, std::int64_t extra)
{
    const std::int64_t start = std::int64_t{p.fTopOutset} + p.fMarginTop;
    switch (c.fVertical) {
    case 0:
    case kAlign_InCenter:
        c.fTop = Pinned(y + extra / 2);
        return extra;
    case kAlign_InFill:
        c.fHeight = c.WithinMaxHeight(Pinned(c.fHeight + extra));
        c.fTop = Pinned(y);
        return 0;
    case kAlign_InProportional:
        c.fTop = Proportional(y, y - start,
                              std::int64_t{p.fHeight} - p.fBottomOutset - p.fMarginBottom - start -
                                  c.fHeight - extra,
                              extra);
        return extra;
    case kAlign_InLeading:
    case kAlign_InTrailing:
        c.fTop = Pinned(y);
        return 0;
    default:
        return 0;
    }
}

// Horizontal alignment comes last: a label that is widened there doesn't change a height.
void SolveColumn(CViewProxy& p)
{
    const std::int64_t extra = ShareInColumn(p);
    const auto trailing = TrailingChildren(p.fChildren, &CViewProxy::fVertical);
    std::int64_t fromBottom = p.fMarginBottom;
    for (auto child = p.fChildren.end(); child != trailing;) {
        CViewProxy& c = **--child;
        c.fTop = Pinned(std::int64_t{p.fHeight} - c.fHeight - fromBottom);
        fromBottom += std::int64_t{c.fHeight} + p.fSpacing;
    }
    std::int64_t y = std::int64_t{p.fTopOutset} + p.fMarginTop;
    for (auto child = p.fChildren.begin(); child != trailing; ++child) {
        y += PlaceInColumn(p, **child, y, extra);
        y += std::int64_t{(*child)->fHeight} + p.fSpacing;
    }
    for (const auto& child : p.fChildren)
        AlignHorizontally(p, *child, p.fHasLabel);
}

// A row whose first child begins a label widens that child until its label ends where the label
// column of the row does.
void WidenLabel(CViewProxy& p)
{
    CViewProxy& first = *p.fChildren.front();
    if (p.fLabelWidth <= 0 || !first.StartsLabelColumn())
        return;
    const std::int64_t label = std::int64_t{p.fLabelWidth} - p.fMarginLeft - p.fLeftOutset;
    const std::int64_t growth = label - first.fLabelWidth;
    first.fWidth = Pinned(first.fWidth + growth);
    first.fLabelWidth = Pinned(label);
    p.fChildWidthSum += growth;
}

// In a row, other than in a column, a child of default alignment takes no share.
std::int64_t ShareInRow(const CViewProxy& p)
{
    const std::ptrdiff_t sharers = std::ranges::count_if(p.fChildren, [](const auto& child) {
        return child->fHorizontal >= kAlign_InFill && child->fHorizontal <= kAlign_InProportional;
    });
    const std::int64_t free = p.fWidth - p.SpacingSum() - p.fMarginRight - p.fMarginLeft;
    return ShareOf(free, p.fChildWidthSum, sharers);
}

// A child of proportional alignment keeps its top.
void AlignInRow(const CViewProxy& p, CViewProxy& c)
{
    const std::int64_t top = std::int64_t{p.fTopOutset} + p.fMarginTop + p.fTopInset - c.fTopInset;
    const std::int64_t bottom = std::int64_t{p.fHeight} + p.fTopOutset - p.fMarginBottom;
    switch (c.fVertical) {
    case 0:
    case kAlign_InCenter:
        c.fTop = Pinned(top + (bottom - c.fHeight - top) / 2);
        return;
    case kAlign_InFill:
        c.fTop = Pinned(top);
        c.fHeight = c.WithinMaxHeight(Pinned(bottom - top));
        return;
    case kAlign_InLeading:
        c.fTop = Pinned(top);
        return;
    case kAlign_InTrailing:
        c.fTop = Pinned(bottom - c.fHeight);
        return;
    default:
        return;
    }
}

// As PlaceInColumn, along a row.
std::int64_t PlaceInRow(const CViewProxy& p, CViewProxy& c, std::int64_t x, std::int64_t extra)
{
    const std::int64_t start = std::int64_t{p.fMarginLeft} + p.fLeftOutset;
    switch (c.fHorizontal) {
    case kAlign_InFill:
        c.fWidth = Pinned(c.fWidth + extra);
        c.fLeft = Pinned(x);
        return 0;
    case kAlign_InCenter:
        c.fLeft = Pinned(x + extra / 2);
        return extra;
    case kAlign_InProportional:
        c.fLeft = Proportional(x, x - start,
                               std::int64_t{p.fWidth} - p.fRightOutset - p.fMarginRight - start -
                                   c.fWidth - extra,
                               extra);
        return extra;
    case 0:
    case kAlign_InLeading:
    case kAlign_InTrailing:
        c.fLeft = Pinned(x);
        return 0;
    default:
        return 0;
    }
}

// The label is widened first, since that takes from the width that is shared.
void SolveRow(CViewProxy& p)
{
    WidenLabel(p);
    const std::int64_t extra = ShareInRow(p);
    for (const auto& child : p.fChildren)
        AlignInRow(p, *child);
    const auto trailing = TrailingChildren(p.fChildren, &CViewProxy::fHorizontal);
    std::int64_t fromRight = p.fMarginRight;
    for (auto child = p.fChildren.end(); child != trailing;) {
        CViewProxy& c = **--child;
        c.fLeft = Pinned(std::int64_t{p.fWidth} - c.fWidth - fromRight);
        fromRight += std::int64_t{c.fWidth} + p.fSpacing;
    }
    std::int64_t x = std::int64_t{p.fMarginLeft} + p.fLeftOutset;
    for (auto child = p.fChildren.begin(); child != trailing; ++child) {
        x += PlaceInRow(p, **child, x, extra);
        x += std::int64_t{(*child)->fWidth} + p.fSpacing;
    }
}

// The vertical keys of a child in a stack have no effect.
void SolveOffscreen(CViewProxy& p)
{
    for (const auto& child : p.fChildren) {
        AlignHorizontally(p, *child, false);
        child->fTop = Pinned(std::int64_t{p.fTopOutset} + p.fMarginTop);
        child->fHeight = child->WithinMaxHeight(
            Pinned(std::int64_t{p.fHeight} - p.fMarginTop - p.fMarginBottom));
    }
}

} // namespace

void PlaceChildren(CViewProxy& proxy)
{
    if (proxy.fChildren.empty())
        return;
    if (proxy.fPlacement == kPlace_Row)
        SolveRow(proxy);
    else if (proxy.fPlacement == kPlace_Offscreen)
        SolveOffscreen(proxy);
    else
        SolveColumn(proxy);
    for (const auto& child : proxy.fChildren) {
        child->fLeft = Pinned(std::int64_t{child->fLeft} + child->fLeftOffset);
        child->fTop = Pinned(std::int64_t{child->fTop} + child->fTopOffset);
    }
}

} // namespace Kesto
