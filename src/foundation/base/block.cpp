#include "foundation/base/block.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace Kesto {

std::size_t CBlock::Rounded(std::size_t size) const
{
    if (fGranularity <= 1 || size % fGranularity == 0)
        return size;
    const std::size_t missing = fGranularity - size % fGranularity;
    if (size > SIZE_MAX - missing)
        throw std::bad_alloc();
    return size + missing;
}

void CBlock::SetSize(std::size_t newSize, bool zeroed)
{
    if (newSize == fSize)
        return;
    const std::size_t newAllocated = Rounded(newSize);
    const std::size_t oldAllocated = Rounded(fSize);
    if (newAllocated != oldAllocated)
        Reallocate(newAllocated, oldAllocated, zeroed);
    fSize = newSize;
}

void CHeapBlock::Reallocate(std::size_t newAllocated, std::size_t oldAllocated, bool zeroed)
{
    if (newAllocated == 0) {
        Free();
        return;
    }
    if (newAllocated > PTRDIFF_MAX)
        throw std::bad_alloc();
    void* memory = std::realloc(fData, newAllocated);
    if (memory == nullptr)
        throw std::bad_alloc();
    fData = static_cast<std::byte*>(memory);
    if (zeroed && newAllocated > oldAllocated)
        std::memset(fData + oldAllocated, 0, newAllocated - oldAllocated);
}

void CHeapBlock::Free()
{
    std::free(fData);
    fData = nullptr;
    fSize = 0;
}

void CHeapBlock::Swap(CHeapBlock& other) noexcept
{
    std::swap(fData, other.fData);
    std::swap(fSize, other.fSize);
    std::swap(fGranularity, other.fGranularity); // the memory held follows from it
}

} // namespace Kesto
