#include "layout/placement/measure.h"

#include "layout/placement/pinned.h"
#include "layout/placement/view_proxy.h"

#include <algorithm>

namespace Kesto {

namespace {

// Of a child's outset, the margin takes its part; what is left sticks out of the parent too.
void ClaimOutset(std::int32_t& outset, std::int32_t childOutset, std::int32_t margin)
{
    outset = std::max(outset, Pinned(std::int64_t{childOutset} - margin));
}

// The outset that a row has already is taken off the excess of its child. With an outset of its own
// a row so claims less than a column would; layouts are tuned to this.
void ClaimRowOutset(std::int32_t& outset, std::int32_t childOutset, std::int32_t margin)
{
    const std::int64_t excess = std::max<std::int64_t>(std::int64_t{childOutset} - margin, 0);
    outset = std::max(outset, Pinned(excess - outset));
}

// What was given is a lower bound. The upper one exists for the height alone.
void RaiseSize(CViewProxy& proxy, std::int64_t width, std::int64_t height)
{
    proxy.fWidth = std::max(proxy.fWidth, Pinned(width));
    proxy.fHeight = proxy.WithinMaxHeight(std::max(proxy.fHeight, Pinned(height)));
}

// The widest child of a column. Children with labels that begin at the left are lined up at the end
// of the widest label, so together they are as wide as it and the widest rest.
class CColumnWidth {
public:
    void Add(const CViewProxy& child)
    {
        const bool leads = child.fHorizontal == 0 || child.fHorizontal == kAlign_InFill ||
                           child.fHorizontal == kAlign_InLeading;
        if (leads && child.fHasLabel) {
            fHasLabel = true;
            fLabel = std::max<std::int64_t>(fLabel, child.fLabelWidth);
            fRest = std::max(fRest, std::int64_t{child.fWidth} - child.fLabelWidth);
        } else {
            fPlain = std::max(fPlain, std::int64_t{child.fWidth} + (leads ? child.fInset : 0));
        }
    }

    bool HasLabel() const { return fHasLabel; }
    std::int64_t Label() const { return fLabel; }
    std::int64_t Widest() const { return std::max(fPlain, fLabel + fRest); }

private:
    bool fHasLabel = false;
    std::int64_t fLabel = 0;
    std::int64_t fRest = 0;
    std::int64_t fPlain = 0;
};

// The outsets at the top and bottom are those of the first and last child; at the sides every child
// has a part.
void MeasureColumn(CViewProxy& p)
{
    ClaimOutset(p.fTopOutset, p.fChildren.front()->fTopOutset, p.fMarginTop);
    ClaimOutset(p.fBottomOutset, p.fChildren.back()->fBottomOutset, p.fMarginBottom);
    CColumnWidth width;
    p.fChildHeightSum = 0;
    for (const auto& child : p.fChildren) {
        ClaimOutset(p.fLeftOutset, child->fLeftOutset, p.fMarginLeft);
        ClaimOutset(p.fRightOutset, child->fRightOutset, p.fMarginRight);
        width.Add(*child);
        p.fChildHeightSum += child->fHeight;
    }
    p.fHasLabel = p.fHasLabel || width.HasLabel();
    if (p.fHasLabel)
        p.fLabelWidth = std::max(p.fLabelWidth, Pinned(width.Label() + p.fMarginLeft));
    RaiseSize(p, width.Widest() + p.fMarginLeft + p.fMarginRight,
              p.fChildHeightSum + p.SpacingSum() + p.fMarginTop + p.fMarginBottom);
}

// The label of a row is that of its first child, moved to where the row begins.
void ClaimRowLabel(CViewProxy& p)
{
    const CViewProxy& first = *p.fChildren.front();
    if (!first.StartsLabelColumn())
        return;
    p.fHasLabel = true;
    p.fLabelWidth = Pinned(std::int64_t{first.fLabelWidth} + p.fMarginLeft + p.fLeftOutset);
}

// Children of a row are lined up by their top insets, so the row is as high as the largest inset
// and the largest rest, which may belong to different children. An inset that the row itself was
// given doesn't count.
void MeasureRow(CViewProxy& p)
{
    ClaimRowOutset(p.fLeftOutset, p.fChildren.front()->fLeftOutset, p.fMarginLeft);
    ClaimRowOutset(p.fRightOutset, p.fChildren.back()->fRightOutset, p.fMarginRight);
    ClaimRowLabel(p);
    p.fTopInset = INT32_MIN;
    p.fChildWidthSum = 0;
    std::int64_t rest = INT64_MIN;
    for (const auto& child : p.fChildren) {
        p.fTopInset = std::max(p.fTopInset, child->fTopInset);
        rest = std::max(rest, std::int64_t{child->fHeight} - child->fTopInset);
        ClaimOutset(p.fTopOutset, child->fTopOutset, p.fMarginTop);
        ClaimOutset(p.fBottomOutset, child->fBottomOutset, p.fMarginBottom);
        p.fChildWidthSum += child->fWidth;
    }
    RaiseSize(p, p.fChildWidthSum + p.SpacingSum() + p.fMarginLeft + p.fMarginRight,
              rest + p.fTopInset + p.fMarginTop + p.fMarginBottom);
}

void MeasureOffscreen(CViewProxy& p)
{
    std::int64_t width = INT32_MIN;
    std::int64_t height = INT32_MIN;
    for (const auto& child : p.fChildren) {
        ClaimOutset(p.fLeftOutset, child->fLeftOutset, p.fMarginLeft);
        ClaimOutset(p.fTopOutset, child->fTopOutset, p.fMarginTop);
        ClaimOutset(p.fRightOutset, child->fRightOutset, p.fMarginRight);
        ClaimOutset(p.fBottomOutset, child->fBottomOutset, p.fMarginBottom);
        width = std::max<std::int64_t>(width, child->fWidth);
        height = std::max<std::int64_t>(height, child->fHeight);
    }
    RaiseSize(p, width + p.fMarginLeft + p.fMarginRight, height + p.fMarginTop + p.fMarginBottom);
}

} // namespace

void MeasureByChildren(CViewProxy& proxy)
{
    if (proxy.fChildren.empty())
        return;
    if (proxy.fReverse)
        std::ranges::reverse(proxy.fChildren);
    if (proxy.fPlacement == kPlace_Row)
        MeasureRow(proxy);
    else if (proxy.fPlacement == kPlace_Offscreen)
        MeasureOffscreen(proxy);
    else
        MeasureColumn(proxy);
}

} // namespace Kesto
