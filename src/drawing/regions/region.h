// CBRVRegion and CDeviceRegion, any area made of rectangles: of doubles in units, and of whole
// device pixels.
//
// Invariant: the rectangles are in bands, top to bottom and left to right within a band. All
// rectangles of a band have its top and bottom, none touches its neighbour, and two bands that
// touch differ in their sides. So two regions of the same area have the same rectangles, whatever
// operations made them.
#pragma once

#include "foundation/base/geometry.h"

#include <span>
#include <vector>

namespace Kesto {

template <class RectType>
class RegionOf {
public:
    using Number = decltype(RectType::left);

    RegionOf() = default;

    // An empty rectangle, and one with a side that is not a number, gives the empty region.
    explicit RegionOf(const RectType& rect);

    bool IsEmpty() const { return fRects.empty(); }
    void Clear() { fRects.clear(); }

    // In bands, as above.
    std::span<const RectType> GetRects() const { return fRects; }

    // The smallest rectangle around it; four zeros when it is empty.
    RectType GetBounds() const;

    RegionOf& Union(const RegionOf& other);
    RegionOf& Intersect(const RegionOf& other);
    RegionOf& Subtract(const RegionOf& other);
    RegionOf& Union(const RectType& rect) { return Union(RegionOf(rect)); }
    RegionOf& Intersect(const RectType& rect);
    RegionOf& Subtract(const RectType& rect) { return Subtract(RegionOf(rect)); }

    // Right and bottom sides are outside.
    bool Contains(Number x, Number y) const;
    // True when all of the rectangle is inside; an empty one is.
    bool Contains(const RectType& rect) const;
    bool Intersects(const RectType& rect) const;

    // Moves all of it; whole numbers stop at the ends of their range.
    void Move(Number dx, Number dy);

    friend bool operator==(const RegionOf&, const RegionOf&) = default;

private:
    std::vector<RectType> fRects;
};

using CBRVRegion = RegionOf<Rect>;
using CDeviceRegion = RegionOf<PixelRect>;

extern template class RegionOf<Rect>;
extern template class RegionOf<PixelRect>;

// The pixels of a region in units, each rectangle by the rule for rectangles.
CDeviceRegion ToDevice(const CBRVRegion& region, double scale);

// The units that a region of pixels touches. Each rectangle grows by a pixel on all sides, so that
// nothing that the rule maps into the region is left out.
CBRVRegion ToUnits(const CDeviceRegion& region, double scale);

} // namespace Kesto
