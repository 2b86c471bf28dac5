// A second solver. It takes the two directions of a container for the same thing where the rules
// do, and tells a position by a formula over all siblings where the solver keeps a running sum.
#pragma once

#include "layout/placement/view_proxy.h"

#include <array>
#include <cmath>
#include <functional>
#include <numeric>

namespace Model {

using Number = std::int64_t;
constexpr int kX = 0;
constexpr int kY = 1;

inline Number Pin(Number n)
{
    return std::clamp<Number>(n, -INT32_MAX, INT32_MAX);
}

struct Extent { // in one direction
    Number position, size, lead, trail, outLead, outTrail, align, offset;
};

struct Box {
    explicit Box(const Kesto::CViewProxy& p)
        : at{{{0, p.fWidth, p.fMarginLeft, p.fMarginRight, p.fLeftOutset, p.fRightOutset,
               p.fHorizontal, p.fLeftOffset},
              {0, p.fHeight, p.fMarginTop, p.fMarginBottom, p.fTopOutset, p.fBottomOutset,
               p.fVertical, p.fTopOffset}}},
          maxHeight(p.fMaxHeight), inset(p.fInset), topInset(p.fTopInset), label(p.fLabelWidth),
          spacing(p.fSpacing), placement(p.fPlacement), hasLabel(p.fHasLabel)
    {
        for (const auto& child : p.fChildren)
            boxes.emplace_back(*child);
        if (p.fReverse)
            std::reverse(boxes.begin(), boxes.end());
    }

    Number Limited(Number height) const
    {
        return maxHeight > 0 ? std::min(height, maxHeight) : height;
    }
    Number Gaps() const { return (std::ssize(boxes) - 1) * spacing; }
    bool IsLabelled() const { return hasLabel && at[kX].align != 2; }
    bool Leads() const { return at[kX].align == 0 || at[kX].align == 1 || at[kX].align == 4; }

    template <class Value>
    Number Most(Value value) const
    {
        return std::accumulate(boxes.begin(), boxes.end(), value(boxes[0]),
                               [&](Number most, const Box& b) { return std::max(most, value(b)); });
    }
    template <class Value>
    Number Sum(Value value) const
    {
        return std::accumulate(boxes.begin(), boxes.end(), Number{0},
                               [&](Number sum, const Box& b) { return sum + value(b); });
    }

    std::array<Extent, 2> at;
    Number maxHeight, inset, topInset, label, spacing, placement;
    bool hasLabel;
    Number used = 0; // by the children along the container
    std::vector<Box> boxes;
};

// Both ends of direction `d`, by the children that lie at them.
inline void Claim(Box& p, int d, const Box& first, const Box& last, bool own)
{
    Extent& e = p.at[d];
    const auto claim = [own](Number outset, Number child, Number margin) {
        const Number excess = child - margin;
        return std::max(outset, Pin(own ? std::max<Number>(excess, 0) - outset : excess));
    };
    e.outLead = claim(e.outLead, first.at[d].outLead, e.lead);
    e.outTrail = claim(e.outTrail, last.at[d].outTrail, e.trail);
}

inline void Measure(Box& p)
{
    for (Box& c : p.boxes)
        Measure(c);
    if (p.boxes.empty())
        return;
    const int along = p.placement == 1 ? kX : kY;
    const auto size = [](int d) { return [d](const Box& b) { return b.at[d].size; }; };
    Number natural[2] = {p.Most(size(kX)), p.Most(size(kY))};
    for (int d : {kX, kY})
        if (d == along && p.placement != 2)
            Claim(p, d, p.boxes.front(), p.boxes.back(), p.placement == 1);
        else
            for (const Box& c : p.boxes)
                Claim(p, d, c, c, false);
    if (p.placement != 2) {
        p.used = p.Sum(size(along));
        natural[along] = p.used + p.Gaps();
    }
    if (p.placement == 1) {
        if (p.boxes[0].IsLabelled()) {
            p.hasLabel = true;
            p.label = Pin(p.boxes[0].label + p.at[kX].lead + p.at[kX].outLead);
        }
        p.topInset = p.Most([](const Box& b) { return b.topInset; });
        natural[kY] = p.topInset + p.Most([](const Box& b) { return b.at[kY].size - b.topInset; });
    } else if (p.placement == 0) {
        const auto isLabelled = [](const Box& b) { return b.hasLabel && b.Leads(); };
        const auto zeroUnless = [](bool counts, Number n) {
            return counts ? std::max<Number>(n, 0) : 0;
        };
        const Number label =
            p.Most([&](const Box& b) { return zeroUnless(isLabelled(b), b.label); });
        const Number rest = p.Most(
            [&](const Box& b) { return zeroUnless(isLabelled(b), b.at[kX].size - b.label); });
        const Number plain = p.Most([&](const Box& b) {
            return zeroUnless(!isLabelled(b), b.at[kX].size + (b.Leads() ? b.inset : 0));
        });
        p.hasLabel |= std::any_of(p.boxes.begin(), p.boxes.end(), isLabelled);
        if (p.hasLabel)
            p.label = std::max(p.label, Pin(label + p.at[kX].lead));
        natural[kX] = std::max(plain, label + rest);
    }
    for (int d : {kX, kY})
        p.at[d].size = std::max(p.at[d].size, Pin(natural[d] + p.at[d].lead + p.at[d].trail));
    p.at[kY].size = p.Limited(p.at[kY].size);
}

// Along a row or a column.
inline void Line(Box& p, int d)
{
    const Extent e = p.at[d];
    const bool isColumn = d == kY;
    std::vector<Box>& c = p.boxes;
    const auto tail =
        c.size() - static_cast<std::size_t>(std::distance(
                       c.rbegin(), std::find_if(c.rbegin(), c.rend(),
                                                [d](const Box& b) { return b.at[d].align != 5; })));
    const Number sharers = p.Sum([&](const Box& b) {
        return b.at[d].align >= (isColumn ? 0 : 1) && b.at[d].align <= 3 ? 1 : 0;
    });
    const Number room = e.size - p.Gaps() - e.lead - e.trail - p.used;
    const Number extra = sharers > 0 && room > 0 ? room / sharers : 0;
    const Number start = e.outLead + e.lead;
    for (std::size_t i = 0; i < tail; ++i)
        if (c[i].at[d].align == 1) {
            const Number grown = Pin(c[i].at[d].size + extra);
            c[i].at[d].size = isColumn ? c[i].Limited(grown) : grown;
        }
    for (std::size_t i = 0; i < c.size(); ++i) {
        Extent& mine = c[i].at[d];
        const auto last = i < tail ? c.begin() + static_cast<std::ptrdiff_t>(i) : c.end();
        const auto first = i < tail ? c.begin() : c.begin() + static_cast<std::ptrdiff_t>(i) + 1;
        const Number beside =
            std::accumulate(first, last, Number{0}, [&](Number sum, const Box& b) {
                const Number align = b.at[d].align;
                const bool spreads =
                    i < tail && (align == 2 || align == 3 || (isColumn && align == 0));
                return sum + b.at[d].size + p.spacing + (spreads ? extra : 0);
            });
        const Number at = start + beside;
        if (i >= tail)
            mine.position = Pin(e.size - mine.size - e.trail - beside);
        else if (mine.align == 2 || (isColumn && mine.align == 0))
            mine.position = Pin(at + extra / 2);
        else if (mine.align == 3) {
            const double share =
                static_cast<double>(at - start) /
                static_cast<double>(e.size - e.outTrail - e.trail - start - mine.size - extra);
            const double where = share * static_cast<double>(extra) + static_cast<double>(at);
            mine.position =
                std::isnan(where)
                    ? 0
                    : Pin(static_cast<Number>(std::clamp(std::round(where), -4e9, 4e9)));
        } else if (mine.align >= 0 && mine.align <= 5)
            mine.position = Pin(at);
    }
}

// Across a column, and in both directions of a stack.
inline void AcrossX(Box& p, Box& c, bool label)
{
    const Extent& e = p.at[kX];
    Extent& mine = c.at[kX];
    const Number wanted = Pin(p.label - e.lead);
    if ((mine.align == 0 || mine.align == 4) && label && c.hasLabel)
        mine.size = Pin(mine.size + (p.label - e.lead) - c.label);
    if (mine.align == 1)
        mine.size = Pin(e.size - e.lead - e.trail);
    if (label && (mine.align == 1 || (c.hasLabel && (mine.align == 0 || mine.align == 4))))
        c.label = wanted;
    const Number positions[] = {
        c.inset + e.lead + e.outLead,         e.outLead + e.lead,
        e.outLead + (e.size - mine.size) / 2, e.outLead + (e.size - mine.size) / 2,
        c.inset + e.lead + e.outLead,         e.size - mine.size - e.lead - e.outLead};
    if (mine.align >= 0 && mine.align <= 5)
        mine.position = Pin(positions[mine.align]);
}

inline void AcrossRow(const Box& p, Box& c)
{
    const Extent& e = p.at[kY];
    Extent& mine = c.at[kY];
    const Number top = e.outLead + e.lead + p.topInset - c.topInset;
    const Number bottom = e.size + e.outLead - e.trail;
    const Number middle = top + (bottom - mine.size - top) / 2;
    const Number positions[] = {middle, top, middle, mine.position, top, bottom - mine.size};
    if (mine.align >= 0 && mine.align <= 5)
        mine.position = Pin(positions[mine.align]);
    if (mine.align == 1)
        mine.size = c.Limited(Pin(bottom - top));
}

inline void Place(Box& p)
{
    if (p.placement == 1 && !p.boxes.empty() && p.label > 0 && p.boxes[0].IsLabelled()) {
        Box& first = p.boxes[0];
        const Number end = p.label - p.at[kX].lead - p.at[kX].outLead;
        p.used += end - first.label;
        first.at[kX].size = Pin(first.at[kX].size + end - first.label);
        first.label = Pin(end);
    }
    if (p.placement != 2 && !p.boxes.empty())
        Line(p, p.placement == 1 ? kX : kY);
    for (Box& c : p.boxes) {
        if (p.placement == 1)
            AcrossRow(p, c);
        else
            AcrossX(p, c, p.placement == 0 && p.hasLabel);
        const Extent& e = p.at[kY];
        if (p.placement == 2) {
            c.at[kY].position = Pin(e.outLead + e.lead);
            c.at[kY].size = c.Limited(Pin(e.size - e.lead - e.trail));
        }
        for (Extent& mine : c.at)
            mine.position = Pin(mine.position + mine.offset);
        Place(c);
    }
}

} // namespace Model
