// CMemoryPixmap, a contiguous pixmap in a block of its own.
//
// All planes lie in the one block, plane after plane. The base address may move when the size
// changes or storage is reserved, which makes all earlier views stale. Where the toolkit wants a
// plain pixmap it asks for a row alignment of 4 and a storage alignment of 0.
#pragma once

#include "foundation/base/block.h"
#include "pixels/pixmaps/basic_pixmap.h"

namespace Kesto {

class CMemoryPixmap : public CBasicPixmap {
public:
    // The storage alignment rounds the block's capacity up and keeps it when the pixmap shrinks; at
    // 0 the block is always exactly as large as the pixels. The pixels are undefined. Throw
    // std::bad_alloc and what CBasicPixmap throws.
    CMemoryPixmap(std::int32_t pixelBits, std::int32_t width, std::int32_t height,
                  std::int32_t planes, std::int32_t rowAlignment, std::uint32_t storageAlignment);
    CMemoryPixmap(const PixelRect& bounds, std::int32_t pixelBits, std::int32_t planes,
                  std::int32_t rowAlignment, std::uint32_t storageAlignment);
    CMemoryPixmap(std::int32_t pixelBits, std::int32_t originX, std::int32_t originY,
                  std::int32_t width, std::int32_t height, std::int32_t planes,
                  std::int32_t rowAlignment, std::uint32_t storageAlignment);

    // The record alone, 0 by 0 pixels: the block stays empty until the first change of size.
    CMemoryPixmap(std::int32_t pixelBits, std::int32_t planes, std::int32_t rowAlignment,
                  std::uint32_t storageAlignment);

    // Copy the record and the pixels.
    CMemoryPixmap(const CMemoryPixmap& other);
    CMemoryPixmap& operator=(const CMemoryPixmap& other);

    using CBasicPixmap::SetSize;
    void SetSize(std::int32_t width, std::int32_t height) override;
    std::uint8_t* GetBaseAddress() const override;

    // Makes room for that many bytes, without regard for what was there.
    virtual void ReserveStorage(std::uint64_t bytes);

    // Frees the block; views are empty until storage is reserved again.
    virtual void ReleaseStorage();

private:
    CMemoryBlock fStorage;
    std::uint32_t fStorageAlignment; // bytes; 0 and 1 round nothing
};

} // namespace Kesto
