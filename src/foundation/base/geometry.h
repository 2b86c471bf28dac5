// Points and rectangles, and the two rules by which numbers become whole.
//
// PixelPoint and PixelRect are whole: pixels of devices and pixmaps, and the numbers of a solved
// layout. Point and Rect are doubles: the units of views and ports. Right and bottom are exclusive
// in all of them.
#pragma once

#include "platform/system/pixel_rect.h"

#include <algorithm>
#include <cstdint>

namespace Kesto {

using Platform::Intersect;
using Platform::PixelPoint;
using Platform::PixelRect;

struct Point {
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    friend bool operator==(const Rect&, const Rect&) = default;

    double Width() const { return right - left; }
    double Height() const { return bottom - top; }

    // A rectangle with a side that is not a number is empty too.
    bool IsEmpty() const { return !(left < right && top < bottom); }
};

// What both rectangles cover; four zeros where they do not meet.
inline Rect Intersect(const Rect& a, const Rect& b)
{
    const Rect both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                    std::min(a.bottom, b.bottom)};
    return both.IsEmpty() ? Rect{} : both;
}

// Both rules keep to 32 bits: what lies beyond is the nearest limit, what is not a number is 0.

// To the nearest whole number, halves away from zero.
std::int32_t RoundHalfAway(double value);

// The scale itself, or 1 in place of 0, of what is below and of what is not a number.
double UsableScale(double scale);

// From units to device pixels: floor(unit * scale + 0.51). One unit is at least one pixel at every
// scale from 1 up, and edges that meet in units meet in pixels. Counts with the usable scale.
std::int32_t ToDevice(double unit, double scale);
PixelRect ToDevice(const Rect& units, double scale);

} // namespace Kesto
