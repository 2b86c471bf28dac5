// CVirtualPixmap, a pixmap whose pixels are a grid of tiles of the tile store, for images that are
// larger than memory.
//
// Each tile holds pixels of one plane. Tiles appear at their first lock, unless all are wanted at
// once; their pixels are undefined until they are written and marked dirty.
#pragma once

#include "pixels/pixmaps/pixmap.h"
#include "pixels/tiles/tile_grid.h"
#include "pixels/tiles/virtual_tile_array.h"

namespace Kesto {

class CVirtualPixmap : public CPixmap {
public:
    // `depthLog2` is 0 to 5 for pixels of 1 to 32 bits; for the size code see TileShape. With
    // `interleaved`, the planes of a tile's place are adjacent in the array of tiles. Throws what
    // TileShape, TileGrid and the heap throw.
    CVirtualPixmap(std::uint8_t depthLog2, std::int32_t width, std::int32_t height,
                   std::int32_t planes, std::uint8_t sizeCode, bool interleaved, bool allocateNow,
                   CVirtualHeap& heap = *CServiceT<CVirtualHeap>::Get());

    using CPixmap::GetBounds;
    using CPixmap::GetOrigin;
    using CPixmap::GetSize;
    using CPixmap::SetSize;

    void GetOrigin(PixelPoint& origin) const override { origin = {fOriginX, fOriginY}; }
    void SetOrigin(const PixelPoint& origin) override
    {
        CVirtualPixmap::SetOrigin(origin.x, origin.y);
    }
    void SetOrigin(std::int32_t x, std::int32_t y) override;
    void GetBounds(PixelRect& bounds) const override;
    void GetSize(PixelPoint& size) const override { size = {fWidth, fHeight}; }
    std::int32_t GetWidth() const override { return fWidth; }
    std::int32_t GetHeight() const override { return fHeight; }
    std::int32_t GetPlaneCount() const override { return fPlanes; }
    std::int32_t GetPixelBits() const override { return fPixelBits; }
    std::int32_t GetPixelBytes() const override { return fPixelBytes; }
    std::int32_t GetRowBits() const override { return fTileRowBits; }
    std::int32_t GetRowBytes() const override { return fTileRowBytes; }
    std::int32_t GetPlaneBits() const override { return 0; }
    std::int32_t GetPlaneBytes() const override { return 0; }
    std::int32_t GetTileWidth() const override { return fShape.fWidth; }
    std::int32_t GetTileHeight() const override { return fShape.fHeight; }
    std::int32_t GetTileLeft(std::int32_t column) const override;
    std::int32_t GetTileTop(std::int32_t row) const override;

    // Left of the origin both round toward zero: the column is 0 for less than a tile's width, and
    // the offset negative.
    std::int32_t GetTileColumn(std::int32_t x) const override;
    std::int32_t GetTileRow(std::int32_t y) const override;
    std::int32_t GetOffsetInTileX(std::int32_t x) const override;
    std::int32_t GetOffsetInTileY(std::int32_t y) const override;

    // For a place in the tile, counted from the tile's first pixel.
    std::int32_t GetBitOffset(std::int32_t x, std::int32_t y) const override;
    std::int32_t GetByteOffset(std::int32_t x, std::int32_t y) const override;

    // Makes all tiles that are missing. A tile's pixels belong to another place afterwards.
    void SetSize(std::int32_t width, std::int32_t height) override;

    // The tile of a place, as the calls of CVirtualTileArray. Throw std::logic_error for a place
    // outside the grid.
    void LockTile(std::int32_t column, std::int32_t row, std::int32_t plane, void*& pointer,
                  bool touch);
    void UnlockTile(std::int32_t column, std::int32_t row, std::int32_t plane, void*& pointer,
                    bool dirty, bool touch);
    void MarkTileDirty(std::int32_t column, std::int32_t row, std::int32_t plane);
    void FlushTile(std::int32_t column, std::int32_t row, std::int32_t plane);
    void TouchTile(std::int32_t column, std::int32_t row, std::int32_t plane);
    CVirtualTile* GetTile(std::int32_t column, std::int32_t row, std::int32_t plane) const;
    CVirtualTile* SetTile(std::int32_t column, std::int32_t row, std::int32_t plane,
                          CVirtualTile* tile);

    // A tile's index in the array.
    std::uint32_t GetTileIndex(std::int32_t column, std::int32_t row, std::int32_t plane) const;

    // All tiles, by that index.
    CVirtualTileArray& Tiles() { return fTiles; }

    std::int32_t GetTilesAcross() const { return fGrid.fTilesAcross; }
    std::int32_t GetTilesDown() const { return fGrid.fTilesDown; }

private:
    CVirtualTileArray fTiles;
    std::int32_t fOriginX = 0;
    std::int32_t fOriginY = 0;
    std::int32_t fPixelBits;
    std::int32_t fPixelBytes;
    std::int32_t fPlanes;
    std::int32_t fWidth;
    std::int32_t fHeight;
    TileShape fShape;
    TileGrid fGrid;
    std::int32_t fTileRowBits;
    std::int32_t fTileRowBytes;
    [[maybe_unused]] std::uint8_t fDepthLog2;
    bool fInterleaved;
};

} // namespace Kesto
