#include "pixels/pixmaps/basic_pixmap.h"

#include "pixels/pixmaps/pixel_size.h"

#include <algorithm>
#include <stdexcept>

namespace Kesto {

std::int32_t CBasicPixmap::ComputeRowBytes(std::int32_t width, std::int32_t pixelBits,
                                           std::int32_t rowAlignment)
{
    if (rowAlignment < 1)
        throw std::logic_error("Warning! (rowAlignment > 0)");
    const std::int64_t bytes = (std::int64_t{pixelBits} * width + 7) / 8;
    const std::int64_t units =
        bytes / rowAlignment + (bytes % rowAlignment > 0); // the ceiling, for either sign
    return Multiply32(units, rowAlignment);
}

CBasicPixmap::CBasicPixmap(std::int32_t pixelBits, std::int32_t originX, std::int32_t originY,
                           std::int32_t width, std::int32_t height, std::int32_t planes,
                           std::int32_t rowAlignment)
    : fOriginX(originX), fOriginY(originY), fPixelBits(pixelBits), fWidth(width), fHeight(height),
      fPlanes(planes), fRowAlignment(rowAlignment),
      fRowBytes(ComputeRowBytes(width, pixelBits, rowAlignment))
{
    Multiply32(fRowBytes, fHeight); // the distance of planes has to fit
}

void CBasicPixmap::SetOrigin(std::int32_t x, std::int32_t y)
{
    fOriginX = x;
    fOriginY = y;
}

void CBasicPixmap::GetBounds(PixelRect& bounds) const
{
    bounds = {fOriginX, fOriginY, ToInt32(std::int64_t{fOriginX} + fWidth),
              ToInt32(std::int64_t{fOriginY} + fHeight)};
}

std::int32_t CBasicPixmap::GetRowBits() const
{
    return Multiply32(fRowBytes, 8);
}

std::int32_t CBasicPixmap::GetPlaneBits() const
{
    return Multiply32(CBasicPixmap::GetPlaneBytes(), 8);
}

std::int32_t CBasicPixmap::GetPlaneBytes() const
{
    return fPlanes <= 1 ? 0 : fRowBytes * fHeight;
}

std::int32_t CBasicPixmap::GetTileLeft(std::int32_t) const
{
    return fOriginX;
}

std::int32_t CBasicPixmap::GetTileTop(std::int32_t) const
{
    return fOriginY;
}

std::int32_t CBasicPixmap::GetTileColumn(std::int32_t) const
{
    return 0;
}

std::int32_t CBasicPixmap::GetTileRow(std::int32_t) const
{
    return 0;
}

std::int32_t CBasicPixmap::GetOffsetInTileX(std::int32_t x) const
{
    return ToInt32(std::int64_t{x} - fOriginX);
}

std::int32_t CBasicPixmap::GetOffsetInTileY(std::int32_t y) const
{
    return ToInt32(std::int64_t{y} - fOriginY);
}

std::int32_t CBasicPixmap::GetBitOffset(std::int32_t x, std::int32_t y) const
{
    return ToInt32(std::int64_t{fPixelBits} * x + std::int64_t{GetRowBits()} * y);
}

std::int32_t CBasicPixmap::GetByteOffset(std::int32_t x, std::int32_t y) const
{
    return ToInt32(std::int64_t{GetPixelBytes()} * x + std::int64_t{fRowBytes} * y);
}

void CBasicPixmap::SetSize(std::int32_t width, std::int32_t height)
{
    if (width == fWidth && height == fHeight)
        return;
    const std::int32_t rowBytes = ComputeRowBytes(width, fPixelBits, fRowAlignment);
    Multiply32(rowBytes, height);
    fWidth = width;
    fHeight = height;
    fRowBytes = rowBytes;
}

void CBasicPixmap::SetPixelBits(std::int32_t pixelBits)
{
    const std::int32_t rowBytes = ComputeRowBytes(fWidth, pixelBits, fRowAlignment);
    Multiply32(rowBytes, fHeight);
    fPixelBits = pixelBits;
    fRowBytes = rowBytes;
}

std::int32_t CBasicPixmap::GetPixelCount() const
{
    return Multiply32(fWidth, fHeight);
}

void CBasicPixmap::GetView(CPixView& view) const
{
    GetView(view, 0, 0, 0, 0, 0, -1);
}

void CBasicPixmap::GetView(CPixView& view, std::int32_t x, std::int32_t y, std::int32_t width,
                           std::int32_t height, std::int32_t firstPlane,
                           std::int32_t planeCount) const
{
    const std::int32_t first = firstPlane < 0 ? 0 : std::min(firstPlane, fPlanes - 1);
    const std::int32_t count =
        planeCount >= 0 ? std::min(planeCount, fPlanes - first) : fPlanes - first;
    std::uint8_t* const base = GetBaseAddress();
    const bool lacksStorage = base == nullptr && fWidth > 0 && fHeight > 0;
    if (fPlanes <= 0 || count <= 0 || lacksStorage) {
        view.Reset();
        return;
    }
    // Pixels of less than a byte may begin within one.
    const std::int64_t bits = std::int64_t{fPixelBits} * x;
    const std::int64_t aligned = bits & ~std::int64_t{7};
    const std::int64_t byteOffset = std::int64_t{fRowBytes} * y + aligned / 8;
    view.SetPlanes(first, count);
    view.bitOffset = static_cast<std::int32_t>(bits - aligned);
    view.x = static_cast<std::int32_t>(std::int64_t{fOriginX} + x);
    view.y = static_cast<std::int32_t>(std::int64_t{fOriginY} + y);
    view.width = width > 0 ? width : static_cast<std::int32_t>(std::int64_t{fWidth} - x);
    view.height = height > 0 ? height : static_cast<std::int32_t>(std::int64_t{fHeight} - y);
    view.SetRowBytes(fRowBytes);
    view.SetPixelBits(fPixelBits);
    if (base == nullptr)
        return;
    const std::int64_t planeDistance = std::int64_t{fRowBytes} * fHeight;
    for (std::int32_t i = 0; i < count; ++i)
        view.planePointers[i] = base + planeDistance * (std::int64_t{first} + i) + byteOffset;
}

void CBasicPixmap::GetView(CPixView& view, const PixelRect& rect, std::int32_t firstPlane,
                           std::int32_t planeCount) const
{
    PixelRect bounds;
    GetBounds(bounds);
    const PixelRect part = Intersect(rect, bounds);
    if (part.IsEmpty()) {
        view.Reset();
        return;
    }
    GetView(view, part.left - fOriginX, part.top - fOriginY, part.right - part.left,
            part.bottom - part.top, firstPlane, planeCount);
}

std::uint64_t CBasicPixmap::StorageBytes() const
{
    const std::int64_t planeBytes = std::int64_t{fRowBytes} * fHeight;
    if (planeBytes < 0 || fPlanes < 0)
        throw std::length_error("A pixmap's size is negative");
    return static_cast<std::uint64_t>(planeBytes) * static_cast<std::uint64_t>(fPlanes);
}

} // namespace Kesto
