// CPixmap, the one abstraction for a rectangle of pixels.
//
// The model is planar: each plane holds one channel of every pixel, with the same pixel size in
// bits in all planes. What the planes mean is a convention between writer and reader: 1 plane is
// grey, 2 are grey and alpha, 3 are red, green and blue, 4 are red, green, blue and alpha. Storage
// is a grid of tiles, of which a contiguous pixmap has one.
//
// Places are global, with the origin at the first pixel, unless a call says local. A pixmap belongs
// to one thread.
#pragma once

#include "foundation/base/geometry.h"

#include <cstdint>

namespace Kesto {

class CPixmap {
public:
    virtual ~CPixmap() = default;

    virtual PixelPoint GetOrigin() const;
    virtual void GetOrigin(PixelPoint& origin) const = 0;
    virtual void SetOrigin(const PixelPoint& origin) = 0;
    virtual void SetOrigin(std::int32_t x, std::int32_t y) = 0;

    virtual PixelRect GetBounds() const;
    virtual void GetBounds(PixelRect& bounds) const = 0;
    virtual void SetBounds(const PixelRect& bounds);

    virtual PixelPoint GetSize() const;
    virtual void GetSize(PixelPoint& size) const = 0;
    virtual void SetSize(const PixelPoint& size);

    // Size and origin become 0.
    virtual void Clear();

    // Sets all pixels to 0. Pixels of other than 8, 16 or 32 bits stay as they are.
    virtual void Erase();

    virtual std::int32_t GetWidth() const = 0;
    virtual std::int32_t GetHeight() const = 0;
    virtual std::int32_t GetPlaneCount() const = 0;
    virtual std::int32_t GetPixelBits() const = 0;
    virtual std::int32_t GetPixelBytes() const = 0; // 0 below 8 bits

    // The distances of rows and planes within a tile. The distance of planes is 0 where they do not
    // follow each other.
    virtual std::int32_t GetRowBits() const = 0;
    virtual std::int32_t GetRowBytes() const = 0;
    virtual std::int32_t GetPlaneBits() const = 0;
    virtual std::int32_t GetPlaneBytes() const = 0;

    // The grid of tiles. Columns and rows of tiles count from 0 at the origin.
    virtual std::int32_t GetTileWidth() const = 0;
    virtual std::int32_t GetTileHeight() const = 0;
    virtual std::int32_t GetTileLeft(std::int32_t column) const = 0;
    virtual std::int32_t GetTileTop(std::int32_t row) const = 0;
    virtual std::int32_t GetTileColumn(std::int32_t x) const = 0;
    virtual std::int32_t GetTileRow(std::int32_t y) const = 0;
    virtual std::int32_t GetOffsetInTileX(std::int32_t x) const = 0;
    virtual std::int32_t GetOffsetInTileY(std::int32_t y) const = 0;

    // Where the pixel at a local place lies in its tile's first plane.
    virtual std::int32_t GetBitOffset(std::int32_t x, std::int32_t y) const = 0;
    virtual std::int32_t GetByteOffset(std::int32_t x, std::int32_t y) const = 0;

    // Changes the size in pixels; pixels are not moved, so the content is unrelated. Throws
    // std::length_error for a size that 32 bits cannot express, and what the storage throws; the
    // pixmap is as it was then.
    virtual void SetSize(std::int32_t width, std::int32_t height) = 0;

protected:
    CPixmap() = default;
    CPixmap(const CPixmap&) = default;
    CPixmap& operator=(const CPixmap&) = default;
};

} // namespace Kesto
