// CBasicPixmap, the record that every contiguous pixmap shares.
//
// Layout: the rows of a plane follow each other at distance rowBytes, top row first; planes follow
// each other at distance rowBytes * height, which fits in 31 bits.
#pragma once

#include "pixels/pixmaps/pixmap.h"
#include "pixels/pixmaps/pixview.h"

namespace Kesto {

class CBasicPixmap : public CPixmap {
public:
    // The bytes of a row of `width` pixels, padded to a multiple of `rowAlignment`. Throws
    // std::length_error when they do not fit in 32 bits, and std::logic_error for an alignment
    // below 1.
    static std::int32_t ComputeRowBytes(std::int32_t width, std::int32_t pixelBits,
                                        std::int32_t rowAlignment);

    using CPixmap::GetBounds;
    using CPixmap::GetOrigin;
    using CPixmap::GetSize;
    using CPixmap::SetSize;

    PixelPoint GetOrigin() const override { return {fOriginX, fOriginY}; }
    void GetOrigin(PixelPoint& origin) const override { origin = {fOriginX, fOriginY}; }
    void SetOrigin(const PixelPoint& origin) override
    {
        CBasicPixmap::SetOrigin(origin.x, origin.y);
    }
    void SetOrigin(std::int32_t x, std::int32_t y) override;
    void GetBounds(PixelRect& bounds) const override;
    void GetSize(PixelPoint& size) const override { size = {fWidth, fHeight}; }
    std::int32_t GetWidth() const override { return fWidth; }
    std::int32_t GetHeight() const override { return fHeight; }
    std::int32_t GetPlaneCount() const override { return fPlanes; }
    std::int32_t GetPixelBits() const override { return fPixelBits; }
    std::int32_t GetPixelBytes() const override { return fPixelBits / 8; }
    std::int32_t GetRowBits() const override;
    std::int32_t GetRowBytes() const override { return fRowBytes; }
    std::int32_t GetPlaneBits() const override;
    std::int32_t GetPlaneBytes() const override;
    std::int32_t GetTileWidth() const override { return fWidth; }
    std::int32_t GetTileHeight() const override { return fHeight; }
    std::int32_t GetTileLeft(std::int32_t column) const override;
    std::int32_t GetTileTop(std::int32_t row) const override;
    std::int32_t GetTileColumn(std::int32_t x) const override;
    std::int32_t GetTileRow(std::int32_t y) const override;
    std::int32_t GetOffsetInTileX(std::int32_t x) const override;
    std::int32_t GetOffsetInTileY(std::int32_t y) const override;
    std::int32_t GetBitOffset(std::int32_t x, std::int32_t y) const override;
    std::int32_t GetByteOffset(std::int32_t x, std::int32_t y) const override;

    // Nothing happens when both equal the present size.
    void SetSize(std::int32_t width, std::int32_t height) override;

    // Throws std::length_error beyond 32 bits.
    virtual std::int32_t GetPixelCount() const;

    // The first byte of plane 0; null without storage.
    virtual std::uint8_t* GetBaseAddress() const = 0;

    // A view of all pixels and planes.
    virtual void GetView(CPixView& view) const;

    // A view of a local rectangle. A width or height of 0 or below reaches to the right or bottom
    // edge; otherwise neither is clipped, and the caller vouches for it. The first plane is brought
    // into range; a plane count below 0 means all further ones, and too high a count is cut. What
    // cannot be honoured is an empty view.
    virtual void GetView(CPixView& view, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height, std::int32_t firstPlane,
                         std::int32_t planeCount) const;

    // A view of the part of a global rectangle that lies in the pixmap.
    virtual void GetView(CPixView& view, const PixelRect& rect, std::int32_t firstPlane,
                         std::int32_t planeCount) const;

protected:
    CBasicPixmap(std::int32_t pixelBits, std::int32_t originX, std::int32_t originY,
                 std::int32_t width, std::int32_t height, std::int32_t planes,
                 std::int32_t rowAlignment);
    CBasicPixmap(const CBasicPixmap&) = default;
    CBasicPixmap& operator=(const CBasicPixmap&) = default;

    // Changes the size of pixels, with the same effect as a change of the pixmap's size.
    void SetPixelBits(std::int32_t pixelBits);

    // What all planes take. Throws std::length_error for a negative amount.
    std::uint64_t StorageBytes() const;

private:
    std::int32_t fOriginX; // global x of local column 0
    std::int32_t fOriginY;
    std::int32_t fPixelBits; // per plane
    std::int32_t fWidth;     // pixels
    std::int32_t fHeight;
    std::int32_t fPlanes;
    std::int32_t fRowAlignment; // bytes
    std::int32_t fRowBytes;     // derived
};

} // namespace Kesto
