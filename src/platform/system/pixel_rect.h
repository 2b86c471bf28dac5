// Points and rectangles of whole pixels: of a screen, a bitmap, a pixmap, a solved layout.
#pragma once

#include <algorithm>
#include <cstdint>

namespace Platform {

struct PixelPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

// Right and bottom are exclusive.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;

    bool IsEmpty() const { return left >= right || top >= bottom; }
    std::int32_t Width() const { return right - left; }
    std::int32_t Height() const { return bottom - top; }
};

// The rectangle moved right by `x` and down by `y`.
constexpr PixelRect Offset(const PixelRect& rect, std::int32_t x, std::int32_t y)
{
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

// What both rectangles cover; empty where they do not meet.
inline PixelRect Intersect(const PixelRect& a, const PixelRect& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

// The smallest rectangle that holds both; an empty one counts for nothing.
inline PixelRect Union(const PixelRect& a, const PixelRect& b)
{
    if (a.IsEmpty() || b.IsEmpty())
        return a.IsEmpty() ? b : a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

} // namespace Platform
