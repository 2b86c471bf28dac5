#include "pixels/kernels/transfer.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/view_access.h"

#include <cstring>
#include <functional>

namespace Kesto::Kernels {

namespace {

// The extent of two views of one pixel size, in bytes.
Extent ByteExtent(const CPixView& a, const CPixView& b)
{
    Extent extent;
    WithPixelType(a.pixelBits, [&]<class T>() {
        extent = CommonExtent(a.pixelBits, {&a, &b});
        extent.fWidth *= static_cast<std::int32_t>(sizeof(T));
    });
    return extent;
}

// Four bytes of `value`, repeated.
template <class T>
std::uint32_t Pattern(T value)
{
    std::uint32_t pattern = 0;
    for (std::size_t shift = 0; shift < 32; shift += 8 * sizeof(T))
        pattern |= static_cast<std::uint32_t>(std::uint64_t{value} << shift);
    return pattern;
}

void CopyRun(KernelTable::Unary8 copy, const std::uint8_t* source, std::uint8_t* out, std::size_t n)
{
    const std::uintptr_t from = reinterpret_cast<std::uintptr_t>(source),
                         to = reinterpret_cast<std::uintptr_t>(out);
    if ((from < to ? to - from : from - to) < n)
        std::memmove(out, source, n);
    else
        copy(source, out, n);
}

} // namespace

void Copy(const CPixView& out, const CPixView& source)
{
    const Extent extent = ByteExtent(out, source);
    const auto copy = ActiveKernels(extent.Pixels()).copy;
    for (std::int32_t plane = 0; plane < extent.fPlanes; ++plane) {
        // Bottom up where the target lies after the source, so that no row is overwritten before it
        // is read.
        const bool up = std::greater<>()(RowOf<std::uint8_t>(out, plane, 0),
                                         RowOf<std::uint8_t>(source, plane, 0));
        for (std::int32_t i = 0; i < extent.fHeight; i += extent.fRun) {
            const std::int32_t y = up ? extent.fHeight - extent.fRun - i : i;
            CopyRun(copy, RowOf<std::uint8_t>(source, plane, y), RowOf<std::uint8_t>(out, plane, y),
                    extent.RunPixels(y, extent.fRun));
        }
    }
}

template <class T>
void Fill(const CPixView& view, std::span<const T> values)
{
    const Extent extent = CommonExtent(8 * sizeof(T), {&view});
    const auto fill = ActiveKernels(sizeof(T) * extent.Pixels()).fill;
    const std::int32_t planes = std::min(extent.fPlanes, static_cast<std::int32_t>(values.size()));
    for (std::int32_t plane = 0; plane < planes; ++plane)
        for (std::int32_t y = 0; y < extent.fHeight; y += extent.fRun)
            fill(Pattern(values[static_cast<std::size_t>(plane)]),
                 RowOf<std::uint8_t>(view, plane, y), sizeof(T) * extent.RunPixels(y, extent.fRun));
}

template <class T>
void FillFrame(const CPixView& view, const PixelRect& inner, std::span<const T> values)
{
    if (!HasPlanes(view, 8 * sizeof(T)))
        return;
    const PixelRect all{view.x, view.y, view.x + view.width, view.y + view.height};
    const PixelRect kept = Intersect(all, inner);
    if (kept.IsEmpty())
        return Fill(view, values);
    // Above and below take the corners, so that no pixel is filled twice.
    const PixelRect strips[] = {{all.left, all.top, all.right, kept.top},
                                {all.left, kept.top, kept.left, kept.bottom},
                                {kept.right, kept.top, all.right, kept.bottom},
                                {all.left, kept.bottom, all.right, all.bottom}};
    for (const PixelRect& strip : strips) {
        if (strip.IsEmpty())
            continue;
        CPixView part = view;
        part.MoveTo(strip);
        Fill(part, values);
    }
}

template void Fill(const CPixView&, std::span<const std::uint8_t>);
template void Fill(const CPixView&, std::span<const std::uint16_t>);
template void Fill(const CPixView&, std::span<const std::uint32_t>);
template void FillFrame(const CPixView&, const PixelRect&, std::span<const std::uint8_t>);
template void FillFrame(const CPixView&, const PixelRect&, std::span<const std::uint16_t>);
template void FillFrame(const CPixView&, const PixelRect&, std::span<const std::uint32_t>);

void Invert(const CPixView& out, const CPixView& source)
{
    const Extent extent = ByteExtent(out, source);
    const auto invert = ActiveKernels(extent.Pixels()).invert;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        invert(RowOf<std::uint8_t>(source, plane, y), RowOf<std::uint8_t>(out, plane, y), n);
    });
}

void Exchange(const CPixView& a, const CPixView& b)
{
    const auto exchange = ActiveKernels().exchange;
    ForEachRow(ByteExtent(a, b), [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        exchange(RowOf<std::uint8_t>(a, plane, y), RowOf<std::uint8_t>(b, plane, y), n);
    });
}

void SwapBytes(const CPixView& out, const CPixView& source)
{
    const Extent extent = CommonExtent(32, {&out, &source});
    const auto swapBytes = ActiveKernels(4 * extent.Pixels()).swapBytes;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        swapBytes(RowOf<std::uint32_t>(source, plane, y), RowOf<std::uint32_t>(out, plane, y), n);
    });
}

} // namespace Kesto::Kernels
