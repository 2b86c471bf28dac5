// Points and rectangles of whole pixels.
#pragma once

#include <algorithm>
#include <cstdint>

namespace Kesto {

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const Point&) const = default;
};

// Right and bottom are exclusive.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const Rect&) const = default;

    bool IsEmpty() const { return left >= right || top >= bottom; }
};

// What both rectangles cover; empty where they do not meet.
inline Rect Intersect(const Rect& a, const Rect& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

} // namespace Kesto
