// The part of a document that a preview shows.
#pragma once

#include "foundation/base/geometry.h"

#include "lumograph/records.h"

#include <cstdint>

namespace Project {

using Kesto::PixelRect;

// A document's size in pixels.
struct DocumentSize {
    int32_t width;
    int32_t height;
};

// The rectangle of `width` x `height` document pixels around the centre, within the document: moved
// towards the side with room where it would pass an edge, smaller where the document is. Both sides
// are cut down to multiples of `sourceFactor` at the right and the bottom. Sizes below 0 count as
// 0.
PixelRect ClampToDocument(int32_t centerX, int32_t centerY, int32_t width, int32_t height,
                          const DocumentSize& document, int32_t sourceFactor);

// A rectangle with `margin` more on each side, within the document, its left and top sides moved by
// multiples of `sourceFactor` alone, so that a walk in steps of it meets the same pixels.
PixelRect GrownInDocument(const PixelRect& rect, int32_t margin, const DocumentSize& document,
                          int32_t sourceFactor);

// To the record's order and 16 bits; what doesn't fit ends at their limits.
HostRect16 ToHostRect(const PixelRect& rect);
PixelRect FromHostRect(const HostRect16& rect);

} // namespace Project
