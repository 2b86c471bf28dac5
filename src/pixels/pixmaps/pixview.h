// CPixView, the plain descriptor on which all pixel kernels run: plane pointers and strides,
// resolved once.
//
// A view does not own pixels, only its array of pointers. It is stale as soon as the pixmap's
// storage moves. An empty view has a null array and all numbers 0; kernels take a view without
// planes or without an array as nothing to do.
#pragma once

#include "foundation/base/geometry.h"

#include <cstdint>
#include <memory>

namespace Kesto {

struct CPixView {
    CPixView() = default;
    CPixView(const CPixView& other);
    CPixView& operator=(CPixView other) noexcept;
    ~CPixView() = default;

    // Selects planes; a count below 0 is 0. All pointers are null then. The array has room for
    // planes in groups of 4 and is reallocated only when the number of groups changes.
    void SetPlanes(std::int32_t first, std::int32_t count);

    void SetRowBytes(std::int32_t bytes) { rowBytes = bytes; }
    void SetPixelBits(std::int32_t bits) { pixelBits = bits; }

    // Makes the view empty.
    void Reset();

    // Moves the window to `rect`, in global coordinates, over the same pixels. The caller vouches
    // that it lies in the storage.
    void MoveTo(const PixelRect& rect);

    std::unique_ptr<std::uint8_t*[]> planePointers; // first pixel of each selected plane
    std::int32_t bitOffset = 0; // from the byte addressed to the first pixel, 0 to 7
    std::int32_t x = 0;         // global place of the first pixel
    std::int32_t y = 0;
    std::int32_t width = 0; // pixels
    std::int32_t height = 0;
    std::int32_t firstPlane = 0; // index in the pixmap of planePointers[0]
    std::int32_t planeCount = 0;
    std::int32_t rowBytes = 0;  // distance of rows
    std::int32_t pixelBits = 0; // size of a pixel in one plane
};

} // namespace Kesto
