#include "dialogs/preview/preview_rect.h"

#include <algorithm>
#include <limits>

namespace Project {
namespace {

struct Span {
    int32_t first;
    int32_t end;
};

// One axis. What an edge has cut off is given back on the other side, as far as there is room.
Span Fit(int32_t center, int32_t size, int32_t limit, int32_t factor)
{
    size = std::max(size, 0);
    Span span{std::clamp(center - size / 2, 0, limit), std::clamp(center + size / 2, 0, limit)};
    span.end = std::min(std::max(span.end, std::min(span.first + size, limit)), limit);
    span.first = std::max(std::min(span.first, span.end - size), 0);
    span.end -= (span.end - span.first) % std::max(factor, 1);
    return span;
}

Span Grow(int32_t first, int32_t end, int32_t margin, int32_t limit, int32_t factor)
{
    const int32_t before = std::min(margin, first) / factor * factor;
    return {first - before, std::min(end + margin, std::max(limit, end))};
}

int16_t Narrow(int32_t number)
{
    using Limits = std::numeric_limits<int16_t>;
    return static_cast<int16_t>(std::clamp<int32_t>(number, Limits::min(), Limits::max()));
}

} // namespace

PixelRect ClampToDocument(int32_t centerX, int32_t centerY, int32_t width, int32_t height,
                          const DocumentSize& document, int32_t sourceFactor)
{
    const Span x = Fit(centerX, width, std::max(document.width, 0), sourceFactor);
    const Span y = Fit(centerY, height, std::max(document.height, 0), sourceFactor);
    return {x.first, y.first, x.end, y.end};
}

PixelRect GrownInDocument(const PixelRect& rect, int32_t margin, const DocumentSize& document,
                          int32_t sourceFactor)
{
    const int32_t factor = std::max(sourceFactor, 1);
    const Span x = Grow(rect.left, rect.right, margin, document.width, factor);
    const Span y = Grow(rect.top, rect.bottom, margin, document.height, factor);
    return {x.first, y.first, x.end, y.end};
}

HostRect16 ToHostRect(const PixelRect& rect)
{
    return {Narrow(rect.top), Narrow(rect.left), Narrow(rect.bottom), Narrow(rect.right)};
}

PixelRect FromHostRect(const HostRect16& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

} // namespace Project
