// Lists of rectangles that don't overlap: what of a window waits to be painted.
#pragma once

#include "platform/system/pixel_rect.h"

#include <span>
#include <vector>

namespace Platform {

// Takes what `rect` covers out of the list.
void SubtractRect(std::vector<PixelRect>& list, const PixelRect& rect);

// Adds what `rect` covers to it. A list that has become long is replaced by the rectangle around
// all.
void AddRect(std::vector<PixelRect>& list, const PixelRect& rect);

// Cuts it to `rect`.
void ClipRects(std::vector<PixelRect>& list, const PixelRect& rect);

constexpr bool Contains(const PixelRect& rect, PixelPoint point)
{
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
           point.y < rect.bottom;
}

} // namespace Platform
