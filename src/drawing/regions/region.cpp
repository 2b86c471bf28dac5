#include "drawing/regions/region.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

namespace Kesto {
namespace {

template <class Number>
using Limits = std::numeric_limits<Number>;

template <class RectType>
bool HasArea(const RectType& rect)
{
    return rect.left < rect.right && rect.top < rect.bottom;
}

// What an operation keeps, by where a place lies.
bool InUnion(bool inA, bool inB)
{
    return inA || inB;
}
bool InIntersection(bool inA, bool inB)
{
    return inA && inB;
}
bool InDifference(bool inA, bool inB)
{
    return inA && !inB;
}
using Keeps = bool (*)(bool inA, bool inB);

// One region's rectangles, walked band by band from the top.
template <class RectType>
class BandWalk {
public:
    using Number = decltype(RectType::left);

    explicit BandWalk(std::span<const RectType> rects) : fRest(rects) { TakeBand(); }

    bool IsDone() const { return fBand.empty(); }
    Number Top() const { return fBand.front().top; }
    Number Bottom() const { return fBand.front().bottom; }

    // The band's rectangles when it reaches over the row `y`, else none.
    std::span<const RectType> At(Number y) const
    {
        return !IsDone() && Top() <= y ? fBand : std::span<const RectType>();
    }

    void PassTo(Number y)
    {
        if (!IsDone() && Bottom() <= y)
            TakeBand();
    }

private:
    void TakeBand()
    {
        std::size_t count = 0;
        while (count < fRest.size() && fRest[count].top == fRest.front().top)
            ++count;
        fBand = fRest.first(count);
        fRest = fRest.subspan(count);
    }

    std::span<const RectType> fRest;
    std::span<const RectType> fBand;
};

// The bands of a result. A band that goes on as the one above it makes that one higher.
template <class RectType>
class BandBuilder {
public:
    using Number = decltype(RectType::left);

    void Begin(Number top, Number bottom)
    {
        fBand.clear();
        fTop = top;
        fBottom = bottom;
    }
    void Add(Number left, Number right) { fBand.push_back({left, fTop, right, fBottom}); }
    void End()
    {
        if (fBand.empty())
            return;
        const std::span above = std::span(fRects).subspan(fLastBand);
        const auto sameSides = [](const RectType& a, const RectType& b) {
            return a.left == b.left && a.right == b.right;
        };
        if (!above.empty() && above.front().bottom == fTop &&
            std::ranges::equal(above, fBand, sameSides)) {
            for (RectType& rect : above)
                rect.bottom = fBottom;
            return;
        }
        fLastBand = fRects.size();
        fRects.insert(fRects.end(), fBand.begin(), fBand.end());
    }
    std::vector<RectType> Take() { return std::move(fRects); }

private:
    std::vector<RectType> fRects;
    std::vector<RectType> fBand;
    std::size_t fLastBand = 0; // index of its first rectangle
    Number fTop{};
    Number fBottom{};
};

// Joins the sides of two bands: walks all sides from left to right and notes where the kept area
// begins and ends.
template <class RectType>
void CombineBands(std::span<const RectType> a, std::span<const RectType> b, Keeps keeps,
                  BandBuilder<RectType>& out)
{
    using Number = decltype(RectType::left);
    std::size_t sideA = 0; // even: a left side comes next
    std::size_t sideB = 0;
    const auto sideOf = [](std::span<const RectType> band, std::size_t side) {
        return side % 2 == 0 ? band[side / 2].left : band[side / 2].right;
    };
    bool kept = false;
    Number begin{};
    while (sideA < 2 * a.size() || sideB < 2 * b.size()) {
        const bool moreA = sideA < 2 * a.size();
        const bool moreB = sideB < 2 * b.size();
        const Number x = !moreB   ? sideOf(a, sideA)
                         : !moreA ? sideOf(b, sideB)
                                  : std::min(sideOf(a, sideA), sideOf(b, sideB));
        sideA += moreA && sideOf(a, sideA) == x;
        sideB += moreB && sideOf(b, sideB) == x;
        const bool keep = keeps(sideA % 2 == 1, sideB % 2 == 1);
        if (keep && !kept)
            begin = x;
        if (!keep && kept)
            out.Add(begin, x);
        kept = keep;
    }
}

template <class RectType>
std::vector<RectType> Combine(std::span<const RectType> a, std::span<const RectType> b, Keeps keeps)
{
    using Number = decltype(RectType::left);
    BandWalk<RectType> walkA(a);
    BandWalk<RectType> walkB(b);
    BandBuilder<RectType> out;
    Number y = Limits<Number>::lowest();
    while (!walkA.IsDone() || !walkB.IsDone()) {
        // A strip ends where a band of either begins or ends.
        Number top = Limits<Number>::max();
        for (const auto* walk : {&walkA, &walkB})
            if (!walk->IsDone())
                top = std::min(top, std::max(walk->Top(), y));
        Number bottom = Limits<Number>::max();
        for (const auto* walk : {&walkA, &walkB})
            if (!walk->IsDone())
                bottom = std::min(bottom, walk->Top() > top ? walk->Top() : walk->Bottom());
        out.Begin(top, bottom);
        CombineBands(walkA.At(top), walkB.At(top), keeps, out);
        out.End();
        walkA.PassTo(bottom);
        walkB.PassTo(bottom);
        y = bottom;
    }
    return out.Take();
}

template <class Number>
Number Moved(Number value, Number delta)
{
    if constexpr (std::is_floating_point_v<Number>)
        return std::clamp(value + delta, Limits<Number>::lowest(), Limits<Number>::max());
    else
        return static_cast<Number>(std::clamp(std::int64_t{value} + delta,
                                              std::int64_t{Limits<Number>::min()},
                                              std::int64_t{Limits<Number>::max()}));
}

// What is endless ends with the numbers, so that every side can be passed.
template <class RectType>
RectType Ended(const RectType& rect)
{
    constexpr auto kLeast = Limits<decltype(RectType::left)>::lowest();
    constexpr auto kMost = Limits<decltype(RectType::left)>::max();
    return {std::max(rect.left, kLeast), std::max(rect.top, kLeast), std::min(rect.right, kMost),
            std::min(rect.bottom, kMost)};
}

} // namespace

template <class RectType>
RegionOf<RectType>::RegionOf(const RectType& rect)
{
    if (const RectType ended = Ended(rect); HasArea(ended))
        fRects.push_back(ended);
}

template <class RectType>
RectType RegionOf<RectType>::GetBounds() const
{
    if (fRects.empty())
        return {};
    RectType bounds = fRects.front();
    for (const RectType& rect : fRects) {
        bounds.left = std::min(bounds.left, rect.left);
        bounds.right = std::max(bounds.right, rect.right);
    }
    bounds.bottom = fRects.back().bottom;
    return bounds;
}

template <class RectType>
RegionOf<RectType>& RegionOf<RectType>::Union(const RegionOf& other)
{
    if (fRects.empty())
        fRects = other.fRects;
    else if (!other.fRects.empty())
        fRects = Combine<RectType>(fRects, other.fRects, InUnion);
    return *this;
}

template <class RectType>
RegionOf<RectType>& RegionOf<RectType>::Intersect(const RegionOf& other)
{
    if (other.fRects.size() == 1 && fRects.size() == 1)
        return Intersect(other.fRects.front());
    fRects = Combine<RectType>(fRects, other.fRects, InIntersection);
    return *this;
}

template <class RectType>
RegionOf<RectType>& RegionOf<RectType>::Intersect(const RectType& rect)
{
    if (fRects.size() != 1)
        return Intersect(RegionOf(rect));
    // The common case, without a list: a rectangle with a rectangle.
    RectType& own = fRects.front();
    own = {std::max(own.left, rect.left), std::max(own.top, rect.top),
           std::min(own.right, rect.right), std::min(own.bottom, rect.bottom)};
    if (!HasArea(own) || !HasArea(rect))
        fRects.clear();
    return *this;
}

template <class RectType>
RegionOf<RectType>& RegionOf<RectType>::Subtract(const RegionOf& other)
{
    if (Intersects(other.GetBounds()))
        fRects = Combine<RectType>(fRects, other.fRects, InDifference);
    return *this;
}

template <class RectType>
bool RegionOf<RectType>::Contains(Number x, Number y) const
{
    return std::ranges::any_of(fRects, [&](const RectType& rect) {
        return rect.left <= x && x < rect.right && rect.top <= y && y < rect.bottom;
    });
}

template <class RectType>
bool RegionOf<RectType>::Contains(const RectType& rect) const
{
    return RegionOf(rect).Subtract(*this).IsEmpty();
}

template <class RectType>
bool RegionOf<RectType>::Intersects(const RectType& rect) const
{
    return HasArea(rect) && std::ranges::any_of(fRects, [&](const RectType& own) {
               return own.left < rect.right && rect.left < own.right && own.top < rect.bottom &&
                      rect.top < own.bottom;
           });
}

template <class RectType>
void RegionOf<RectType>::Move(Number dx, Number dy)
{
    for (RectType& rect : fRects)
        rect = {Moved(rect.left, dx), Moved(rect.top, dy), Moved(rect.right, dx),
                Moved(rect.bottom, dy)};
    // At the ends of the range rectangles may have been squeezed to nothing or into each other.
    if (std::ranges::all_of(fRects, HasArea<RectType>))
        return;
    for (const RectType& rect : std::exchange(fRects, {}))
        Union(rect);
}

template class RegionOf<Rect>;
template class RegionOf<PixelRect>;

CDeviceRegion ToDevice(const CBRVRegion& region, double scale)
{
    CDeviceRegion pixels;
    for (const Rect& rect : region.GetRects())
        pixels.Union(ToDevice(rect, scale));
    return pixels;
}

CBRVRegion ToUnits(const CDeviceRegion& region, double scale)
{
    const double usable = UsableScale(scale);
    CBRVRegion units;
    for (const PixelRect& rect : region.GetRects())
        units.Union(Rect{(rect.left - 1.0) / usable, (rect.top - 1.0) / usable,
                         (rect.right + 1.0) / usable, (rect.bottom + 1.0) / usable});
    return units;
}

} // namespace Kesto
