#include "pixels/pixmaps/memory_pixmap.h"

#include "pixels/pixmaps/pixel_size.h"

#include <cstring>
#include <new>

namespace Kesto {

CMemoryPixmap::CMemoryPixmap(std::int32_t pixelBits, std::int32_t originX, std::int32_t originY,
                             std::int32_t width, std::int32_t height, std::int32_t planes,
                             std::int32_t rowAlignment, std::uint32_t storageAlignment)
    : CBasicPixmap(pixelBits, originX, originY, width, height, planes, rowAlignment),
      fStorageAlignment(storageAlignment)
{
    CMemoryPixmap::ReserveStorage(StorageBytes());
}

CMemoryPixmap::CMemoryPixmap(std::int32_t pixelBits, std::int32_t width, std::int32_t height,
                             std::int32_t planes, std::int32_t rowAlignment,
                             std::uint32_t storageAlignment)
    : CMemoryPixmap(pixelBits, 0, 0, width, height, planes, rowAlignment, storageAlignment)
{
}

CMemoryPixmap::CMemoryPixmap(const PixelRect& bounds, std::int32_t pixelBits, std::int32_t planes,
                             std::int32_t rowAlignment, std::uint32_t storageAlignment)
    : CMemoryPixmap(
          pixelBits, bounds.left, bounds.top, ToInt32(std::int64_t{bounds.right} - bounds.left),
          ToInt32(std::int64_t{bounds.bottom} - bounds.top), planes, rowAlignment, storageAlignment)
{
}

CMemoryPixmap::CMemoryPixmap(std::int32_t pixelBits, std::int32_t planes, std::int32_t rowAlignment,
                             std::uint32_t storageAlignment)
    : CBasicPixmap(pixelBits, 0, 0, 0, 0, planes, rowAlignment), fStorageAlignment(storageAlignment)
{
}

CMemoryPixmap::CMemoryPixmap(const CMemoryPixmap& other)
    : CBasicPixmap(other), fStorageAlignment(other.fStorageAlignment)
{
    fStorage.SetSize(other.fStorage.GetSize());
    if (fStorage.GetSize() != 0)
        std::memcpy(fStorage.Data(), other.fStorage.Data(), fStorage.GetSize());
}

CMemoryPixmap& CMemoryPixmap::operator=(const CMemoryPixmap& other)
{
    if (this == &other)
        return *this;
    fStorage.SetSize(other.fStorage.GetSize());
    if (fStorage.GetSize() != 0)
        std::memcpy(fStorage.Data(), other.fStorage.Data(), fStorage.GetSize());
    CBasicPixmap::operator=(other);
    fStorageAlignment = other.fStorageAlignment;
    return *this;
}

void CMemoryPixmap::SetSize(std::int32_t width, std::int32_t height)
{
    const PixelPoint old = GetSize();
    if (PixelPoint{width, height} == old)
        return;
    CBasicPixmap::SetSize(width, height);
    try {
        ReserveStorage(StorageBytes());
    } catch (...) {
        CBasicPixmap::SetSize(old.x, old.y); // the block is still the one for that size
        throw;
    }
}

std::uint8_t* CMemoryPixmap::GetBaseAddress() const
{
    return reinterpret_cast<std::uint8_t*>(const_cast<std::byte*>(fStorage.Data()));
}

void CMemoryPixmap::ReserveStorage(std::uint64_t bytes)
{
    if (fStorageAlignment >= 1 && bytes <= fStorage.GetSize())
        return;
    const std::uint64_t missing =
        fStorageAlignment > 1 ? (fStorageAlignment - bytes % fStorageAlignment) % fStorageAlignment
                              : 0;
    if (bytes > PTRDIFF_MAX - missing)
        throw std::bad_alloc();
    if (bytes + missing == fStorage.GetSize())
        return;
    // A new block in place of the old: growing that one would copy pixels that nobody wants.
    CMemoryBlock storage;
    storage.SetSize(static_cast<std::size_t>(bytes + missing));
    fStorage.Swap(storage);
}

void CMemoryPixmap::ReleaseStorage()
{
    fStorage.Free();
}

} // namespace Kesto
