#include "pixels/tiles/virtual_tile_array.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kesto {

CVirtualTileArray::CVirtualTileArray(std::uint8_t memoryClass, bool discardable, CVirtualHeap& heap)
    : fHeap(&heap), fMemoryClass(memoryClass),
      fSlotClass(discardable ? Kesto::GetSlotClass(memoryClass) : memoryClass)
{
    heap.RegisterTileArray(this);
}

CVirtualTileArray::~CVirtualTileArray()
{
    if (fHeap == nullptr)
        return;
    ReleaseAll();
    fHeap->UnregisterTileArray(this);
}

CVirtualHeap& CVirtualTileArray::Heap() const
{
    if (fHeap == nullptr)
        throw std::logic_error("Warning! (fHeap != nullptr)");
    return *fHeap;
}

CVirtualTile*& CVirtualTileArray::Place(std::uint32_t index)
{
    if (index >= fTiles.size())
        throw std::logic_error("Warning! (index < fTiles.size())");
    return fTiles[index];
}

// The heap is being destroyed, and the tiles with it.
void CVirtualTileArray::LoseHeap()
{
    std::ranges::fill(fTiles, nullptr);
    std::exchange(fHeap, nullptr)->UnregisterTileArray(this);
}

void CVirtualTileArray::Resize(std::uint32_t count)
{
    while (fTiles.size() > count) {
        Heap().ReleaseTile(fTiles.back());
        fTiles.pop_back();
    }
    fTiles.resize(count);
}

void CVirtualTileArray::Realize()
{
    const auto missing = static_cast<std::uint32_t>(std::ranges::count(fTiles, nullptr));
    Heap().PreallocateTiles(fSlotClass, missing);
    for (CVirtualTile*& tile : fTiles)
        if (tile == nullptr)
            tile = Heap().AcquireTile(fMemoryClass, fSlotClass, 1);
}

void CVirtualTileArray::Lock(std::uint32_t index, void*& pointer, bool touch)
{
    CVirtualTile*& place = Place(index);
    CVirtualHeap& heap = Heap();
    if (place == nullptr)
        place = heap.AcquireTile(fMemoryClass, fSlotClass, 1);
    CVirtualTile& tile = *place;
    if (tile.fLockCount == CVirtualTile::kMostLocks)
        throw std::logic_error("Warning! (tile.fLockCount < kMostLocks)");
    if (tile.fBlock == nullptr)
        tile.Load(heap); // counted after it, so that a failure leaves no lock
    ++tile.fLockCount;
    pointer = tile.fBlock->fMemory;
    if (touch)
        heap.TouchBlock(&tile);
}

void CVirtualTileArray::Unlock(std::uint32_t index, void*& pointer, bool dirty, bool touch)
{
    if (pointer == nullptr)
        return;
    CVirtualTile* const tile = Place(index);
    if (tile == nullptr || tile->fLockCount == 0)
        throw std::logic_error("Warning! (tile->fLockCount > 0)");
    --tile->fLockCount;
    pointer = nullptr;
    if (dirty)
        tile->fFlags |= CVirtualTile::kDirty;
    if (dirty || touch)
        Heap().TouchBlock(tile);
}

void CVirtualTileArray::MarkDirty(std::uint32_t index)
{
    CVirtualTile* const tile = Place(index);
    if (tile != nullptr && tile->fBlock != nullptr)
        tile->fFlags |= CVirtualTile::kDirty;
}

void CVirtualTileArray::Flush(std::uint32_t index)
{
    if (CVirtualTile* const tile = Place(index))
        tile->Flush(Heap());
}

void CVirtualTileArray::Touch(std::uint32_t index)
{
    if (CVirtualTile* const tile = Place(index))
        Heap().TouchBlock(tile);
}

void CVirtualTileArray::ReleaseAll()
{
    for (auto place = fTiles.rbegin(); place != fTiles.rend(); ++place)
        Heap().ReleaseTile(std::exchange(*place, nullptr));
}

CVirtualTile* CVirtualTileArray::GetTile(std::uint32_t index) const
{
    return const_cast<CVirtualTileArray*>(this)->Place(index);
}

CVirtualTile* CVirtualTileArray::SetTile(std::uint32_t index, CVirtualTile* tile)
{
    return std::exchange(Place(index), tile);
}

} // namespace Kesto
