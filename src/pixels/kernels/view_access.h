// How the kernels get from views to rows.
#pragma once

#include "pixels/kernels/plane.h"
#include "pixels/pixmaps/pixview.h"

#include <algorithm>
#include <initializer_list>

namespace Kesto::Kernels {

// The pixels that some views have in common.
struct Extent {
    std::int32_t fWidth = 0;
    std::int32_t fHeight = 0;
    std::int32_t fPlanes = 0;
    // Rows that follow each other without a gap in every view: all of them or 1.
    std::int32_t fRun = 1;

    // Pixels of all planes.
    std::size_t Pixels() const
    {
        return static_cast<std::size_t>(fWidth) * static_cast<std::size_t>(fHeight) *
               static_cast<std::size_t>(fPlanes);
    }

    // Pixels of the run of rows that starts at row y, of `rows` rows or what is left.
    std::size_t RunPixels(std::int32_t y, std::int32_t rows) const
    {
        return static_cast<std::size_t>(fWidth) *
               static_cast<std::size_t>(std::min(rows, fHeight - y));
    }
};

// True for a view with planes of `bits` bits a pixel.
inline bool HasPlanes(const CPixView& view, std::int32_t bits)
{
    return view.planePointers != nullptr && view.planeCount > 0 && view.pixelBits == bits;
}

// What all views have. They are of one size and one plane count where the caller kept to the rules;
// otherwise the smallest counts, and a view without pixels of `bits` bits leaves nothing to do.
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
    if (extent.fWidth <= 0 || extent.fHeight <= 0)
        return {};
    const auto isGapless = [&](const CPixView* view) {
        return view->rowBytes == std::int64_t{extent.fWidth} * (bits / 8);
    };
    if (std::all_of(views.begin(), views.end(), isGapless))
        extent.fRun = extent.fHeight;
    return extent;
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
    extent.fRun = extent.fRun > 1 && masked.fRun > 1 ? extent.fHeight : 1;
    return extent;
}

template <class T>
T* RowOf(const CPixView& view, std::int32_t plane, std::int32_t y)
{
    std::uint8_t* row =
        view.planePointers[static_cast<std::size_t>(plane)] + std::ptrdiff_t{view.rowBytes} * y;
    return static_cast<T*>(static_cast<void*>(row));
}

template <class T>
Plane<T> PlaneOf(const CPixView& view, std::int32_t plane)
{
    return {RowOf<T>(view, plane, 0), view.rowBytes, view.width, view.height};
}

// Calls row(plane, y, pixels) for every row, all planes of a row before the next. Short rows
// without gaps are taken as few long ones, short enough that a mask is still in a near cache when
// the next plane wants it.
template <class Function>
void ForEachRow(const Extent& extent, const Function& row)
{
    constexpr std::int32_t kLongRow = 131072;
    const std::int32_t rows = std::clamp(kLongRow / std::max(extent.fWidth, 1), 1, extent.fRun);
    for (std::int32_t y = 0; y < extent.fHeight; y += rows)
        for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane)
            row(plane, y, extent.RunPixels(y, rows));
}

// Calls function.template operator()<T>() with the pixel type of a size of 8, 16 or 32 bits, and
// not at all otherwise.
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
