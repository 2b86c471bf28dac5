#include "pixels/tiles/virtual_tile.h"

#include "foundation/errors/system_checks.h"
#include "pixels/tiles/virtual_heap.h"

#include <new>

namespace Kesto {
namespace {

// Rows of tiles start where the widest vectors like them.
constexpr std::align_val_t kBlockAlignment{64};

} // namespace

CVirtualBlock::CVirtualBlock(std::uint8_t memoryClass) : fMemoryClass(memoryClass)
{
    const auto size = static_cast<std::size_t>(Bytes());
    void* memory = nullptr;
    if (const auto& allocator = CVirtualAllocator::Installed()) {
        memory = allocator->Allocate(size);
        if (memory != nullptr)
            fAllocator = allocator;
    }
    if (memory == nullptr)
        memory = ::operator new(size, kBlockAlignment, std::nothrow);
    OSThrowNull(memory);
    fMemory = static_cast<std::byte*>(memory);
}

CVirtualBlock::~CVirtualBlock()
{
    if (fAllocator != nullptr)
        fAllocator->Free(fMemory);
    else
        ::operator delete(fMemory, kBlockAlignment);
}

void CVirtualTile::Load(CVirtualHeap& heap)
{
    if (fBlock != nullptr)
        return;
    heap.AcquireBlock(this);
    if (!Has(kSaved) || Has(kSkipRead))
        return;
    try {
        heap.ReadSlot(*this);
    } catch (...) {
        heap.ReleaseBlock(this); // or the next lock would find it resident, with other bytes
        throw;
    }
}

void CVirtualTile::Flush(CVirtualHeap& heap)
{
    if (fBlock == nullptr || !Has(kDirty))
        return;
    if (!Has(kUnsaveable))
        heap.WriteSlot(*this);
    fFlags = static_cast<std::uint8_t>((fFlags & ~kDirty) | kSaved);
}

} // namespace Kesto
