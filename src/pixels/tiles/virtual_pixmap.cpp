#include "pixels/tiles/virtual_pixmap.h"

#include "pixels/pixmaps/pixel_size.h"

#include <stdexcept>

namespace Kesto {

CVirtualPixmap::CVirtualPixmap(std::uint8_t depthLog2, std::int32_t width, std::int32_t height,
                               std::int32_t planes, std::uint8_t sizeCode, bool interleaved,
                               bool allocateNow, CVirtualHeap& heap)
    : fTiles(TileShape::FromCode(depthLog2, sizeCode).fClass, false, heap),
      fPixelBits(1 << depthLog2), fPixelBytes(fPixelBits / 8), fPlanes(planes), fWidth(width),
      fHeight(height), fShape(TileShape::FromCode(depthLog2, sizeCode)),
      fGrid(fShape, width, height, planes, interleaved), fTileRowBits(fShape.fWidth << depthLog2),
      fTileRowBytes(fTileRowBits / 8), fDepthLog2(depthLog2), fInterleaved(interleaved)
{
    fTiles.Resize(fGrid.fCount);
    if (allocateNow)
        fTiles.Realize();
}

void CVirtualPixmap::SetOrigin(std::int32_t x, std::int32_t y)
{
    fOriginX = x;
    fOriginY = y;
}

void CVirtualPixmap::GetBounds(PixelRect& bounds) const
{
    bounds = {fOriginX, fOriginY, ToInt32(std::int64_t{fOriginX} + fWidth),
              ToInt32(std::int64_t{fOriginY} + fHeight)};
}

std::int32_t CVirtualPixmap::GetTileLeft(std::int32_t column) const
{
    return ToInt32(fOriginX + std::int64_t{column} * fShape.fWidth);
}

std::int32_t CVirtualPixmap::GetTileTop(std::int32_t row) const
{
    return ToInt32(fOriginY + std::int64_t{row} * fShape.fHeight);
}

std::int32_t CVirtualPixmap::GetTileColumn(std::int32_t x) const
{
    return static_cast<std::int32_t>((std::int64_t{x} - fOriginX) / fShape.fWidth);
}

std::int32_t CVirtualPixmap::GetTileRow(std::int32_t y) const
{
    return static_cast<std::int32_t>((std::int64_t{y} - fOriginY) / fShape.fHeight);
}

std::int32_t CVirtualPixmap::GetOffsetInTileX(std::int32_t x) const
{
    return static_cast<std::int32_t>((std::int64_t{x} - fOriginX) % fShape.fWidth);
}

std::int32_t CVirtualPixmap::GetOffsetInTileY(std::int32_t y) const
{
    return static_cast<std::int32_t>((std::int64_t{y} - fOriginY) % fShape.fHeight);
}

std::int32_t CVirtualPixmap::GetBitOffset(std::int32_t x, std::int32_t y) const
{
    return ToInt32(std::int64_t{fPixelBits} * x + std::int64_t{fTileRowBits} * y);
}

std::int32_t CVirtualPixmap::GetByteOffset(std::int32_t x, std::int32_t y) const
{
    return ToInt32(std::int64_t{fPixelBytes} * x + std::int64_t{fTileRowBytes} * y);
}

void CVirtualPixmap::SetSize(std::int32_t width, std::int32_t height)
{
    if (width == fWidth && height == fHeight)
        return;
    const TileGrid grid(fShape, width, height, fPlanes, fInterleaved);
    fTiles.Resize(grid.fCount);
    fGrid = grid;
    fWidth = width;
    fHeight = height;
    fTiles.Realize();
}

std::uint32_t CVirtualPixmap::GetTileIndex(std::int32_t column, std::int32_t row,
                                           std::int32_t plane) const
{
    if (column < 0 || column >= fGrid.fTilesAcross)
        throw std::logic_error("Warning! (column < fTilesAcross)");
    if (row < 0 || row >= fGrid.fTilesDown)
        throw std::logic_error("Warning! (row < fTilesDown)");
    if (plane < 0 || plane >= fPlanes)
        throw std::logic_error("Warning! (plane < fPlanes)");
    return static_cast<std::uint32_t>(column * fGrid.fColumnStride + row * fGrid.fRowStride +
                                      plane * fGrid.fPlaneStride);
}

void CVirtualPixmap::LockTile(std::int32_t column, std::int32_t row, std::int32_t plane,
                              void*& pointer, bool touch)
{
    fTiles.Lock(GetTileIndex(column, row, plane), pointer, touch);
}

void CVirtualPixmap::UnlockTile(std::int32_t column, std::int32_t row, std::int32_t plane,
                                void*& pointer, bool dirty, bool touch)
{
    fTiles.Unlock(GetTileIndex(column, row, plane), pointer, dirty, touch);
}

void CVirtualPixmap::MarkTileDirty(std::int32_t column, std::int32_t row, std::int32_t plane)
{
    fTiles.MarkDirty(GetTileIndex(column, row, plane));
}

void CVirtualPixmap::FlushTile(std::int32_t column, std::int32_t row, std::int32_t plane)
{
    fTiles.Flush(GetTileIndex(column, row, plane));
}

void CVirtualPixmap::TouchTile(std::int32_t column, std::int32_t row, std::int32_t plane)
{
    fTiles.Touch(GetTileIndex(column, row, plane));
}

CVirtualTile* CVirtualPixmap::GetTile(std::int32_t column, std::int32_t row,
                                      std::int32_t plane) const
{
    return fTiles.GetTile(GetTileIndex(column, row, plane));
}

CVirtualTile* CVirtualPixmap::SetTile(std::int32_t column, std::int32_t row, std::int32_t plane,
                                      CVirtualTile* tile)
{
    return fTiles.SetTile(GetTileIndex(column, row, plane), tile);
}

} // namespace Kesto
