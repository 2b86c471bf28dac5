#include "platform/windows/linux/rect_list.h"

#include <utility>

namespace Platform {
namespace {

constexpr std::size_t kMostRects = 64;

} // namespace

// What is left of each rectangle: the bands above and below, and the pieces on both sides.
void SubtractRect(std::vector<PixelRect>& list, const PixelRect& rect)
{
    std::vector<PixelRect> rest;
    const auto keep = [&rest](const PixelRect& piece) {
        if (!piece.IsEmpty())
            rest.push_back(piece);
    };
    for (const PixelRect& from : list) {
        const PixelRect both = Intersect(from, rect);
        if (both.IsEmpty()) {
            rest.push_back(from);
            continue;
        }
        keep({from.left, from.top, from.right, both.top});
        keep({from.left, both.top, both.left, both.bottom});
        keep({both.right, both.top, from.right, both.bottom});
        keep({from.left, both.bottom, from.right, from.bottom});
    }
    list = std::move(rest);
}

void AddRect(std::vector<PixelRect>& list, const PixelRect& rect)
{
    if (rect.IsEmpty())
        return;
    SubtractRect(list, rect);
    list.push_back(rect);
    if (list.size() <= kMostRects)
        return;
    PixelRect around = rect;
    for (const PixelRect& each : list)
        around = {std::min(around.left, each.left), std::min(around.top, each.top),
                  std::max(around.right, each.right), std::max(around.bottom, each.bottom)};
    list.assign(1, around);
}

void ClipRects(std::vector<PixelRect>& list, const PixelRect& rect)
{
    for (PixelRect& each : list)
        each = Intersect(each, rect);
    std::erase_if(list, [](const PixelRect& each) { return each.IsEmpty(); });
}

} // namespace Platform
