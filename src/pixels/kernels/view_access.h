// How the kernels get from views to rows.
#pragma once

#include "pixels/kernels/plane.h"
#include "pixels/pixview.h"

#include <algorithm>
#include <initializer_list>

namespace Kesto::Kernels {

// The pixels that some views have in common.
struct Extent {
    std::int32_t fWidth = 0;
    std::int32_t fHeight = 0;
    std::int32_t fPlanes = 0;
};

// True for a view with planes of `bits` bits a pixel.
inline bool HasPlanes(const CPixView& view, std::int32_t bits)
{
    return view.planePointers != nullptr && view.planeCount > 0 && view.pixelBits == bits;
}

// What all views have. They are of one size and one plane count where the caller kept to the rules; otherwise the smallest
// counts, and a view without pixels of `bits` bits leaves nothing to do.
inline Extent CommonExtent(std::int32_t bits, std::initializer_list<const CPixView*> views)
{
    Extent extent{(*views.begin())->width, (*views.begin())->height, (*views.begin())->planeCount};
    for (const CPixView* view : views) {
        if (!HasPlanes(*view, bits))
            return {};
        extent.fWidth = std::min(extent.fWidth, view->width);
        extent.fHeight = std::min(extent.fHeight, view->height);
        extent.fPlanes = std::min(extent.fPlanes, view->planeCount);
    }
    return extent.fWidth > 0 && extent.fHeight > 0 ? extent : Extent{};
}

// The same for views of `planes` planes and one mask of a single plane.
inline Extent CommonExtent(std::initializer_list<const CPixView*> views, const CPixView& mask)
{
    Extent extent = CommonExtent(8, views);
    const Extent masked = CommonExtent(8, {*views.begin(), &mask});
    if (masked.fPlanes == 0)
        return {};
    extent.fWidth = std::min(extent.fWidth, masked.fWidth);
    extent.fHeight = std::min(extent.fHeight, masked.fHeight);
    return extent;
}

template <class T>
T* RowOf(const CPixView& view, std::int32_t plane, std::int32_t y)
{
    std::uint8_t* row = view.planePointers[static_cast<std::size_t>(plane)] + std::ptrdiff_t{view.rowBytes} * y;
    return static_cast<T*>(static_cast<void*>(row));
}

template <class T>
Plane<T> PlaneOf(const CPixView& view, std::int32_t plane)
{
    return {RowOf<T>(view, plane, 0), view.rowBytes, view.width, view.height};
}

// Calls row(plane, y, pixels in a row) for every row, all planes of a row before the next.
template <class Function>
void ForEachRow(const Extent& extent, const Function& row)
{
    for (std::int32_t y = 0; y < extent.fHeight; ++y)
        for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane)
            row(plane, y, static_cast<std::size_t>(extent.fWidth));
}

// Calls function.template operator()<T>() with the pixel type of a size of 8, 16 or 32 bits, and not at all otherwise.
template <class Function>
void WithPixelType(std::int32_t bits, const Function& function)
{
    if (bits == 8)
        function.template operator()<std::uint8_t>();
    else if (bits == 16)
        function.template operator()<std::uint16_t>();
    else if (bits == 32)
        function.template operator()<std::uint32_t>();
}

} // namespace Kesto::Kernels
