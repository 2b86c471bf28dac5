// CVirtualTileArray, the tiles of one pixmap or other large store, made when they are first wanted.
//
// When its heap is destroyed first, the array loses its tiles, and throws std::logic_error when it
// is used further. So it does for an index past its end, for too many locks and for an unlock
// without a lock.
#pragma once

#include "foundation/base/service.h"
#include "pixels/tiles/virtual_heap.h"

#include <cstdint>
#include <vector>

namespace Kesto {

class CVirtualTileArray {
public:
    // Without tiles. Those of a discardable array have no room on the disk to speak of: evicted,
    // they lose their data.
    explicit CVirtualTileArray(std::uint8_t memoryClass, bool discardable = false,
                               CVirtualHeap& heap = *CServiceT<CVirtualHeap>::Get());
    CVirtualTileArray(const CVirtualTileArray&) = delete;
    CVirtualTileArray& operator=(const CVirtualTileArray&) = delete;
    ~CVirtualTileArray();

    std::uint32_t GetCount() const { return static_cast<std::uint32_t>(fTiles.size()); }
    std::uint8_t GetMemoryClass() const { return fMemoryClass; }
    std::uint8_t GetSlotClass() const { return fSlotClass; }

    // A longer array gets places without tiles; a shorter one releases those beyond its end, last
    // first.
    void Resize(std::uint32_t count);

    // Acquires a tile for each place without one. What the heap throws leaves the rest without.
    void Realize();

    // Makes a tile resident, acquiring it if there is none, and keeps it so until it is unlocked as
    // often. `pointer` is its data: what it last had if that was marked dirty, and otherwise
    // undefined. With `touch` it becomes the newest.
    void Lock(std::uint32_t index, void*& pointer, bool touch);

    // Ends one lock and makes `pointer` null; without effect for one that is null already. With
    // `dirty`, the data has changed and will be saved before it leaves memory. With either flag,
    // the tile becomes the newest.
    void Unlock(std::uint32_t index, void*& pointer, bool dirty, bool touch);

    // The data of a tile, if it is resident, has changed; is written to its slot now; or the tile
    // becomes the newest.
    void MarkDirty(std::uint32_t index);
    void Flush(std::uint32_t index);
    void Touch(std::uint32_t index);

    // Releases all tiles, last first. The places stay.
    void ReleaseAll();

    // The tile of a place, or null. Set puts another one there, which becomes the array's, and
    // returns the former one, which becomes the caller's. Both are of the same heap and classes.
    CVirtualTile* GetTile(std::uint32_t index) const;
    CVirtualTile* SetTile(std::uint32_t index, CVirtualTile* tile);

private:
    friend class CVirtualHeap;

    CVirtualHeap& Heap() const;
    CVirtualTile*& Place(std::uint32_t index);
    void LoseHeap();

    CVirtualHeap* fHeap; // null when it is gone
    std::vector<CVirtualTile*> fTiles;
    CVirtualTileArray* fNext = nullptr; // in the heap's list
    CVirtualTileArray* fPrevious = nullptr;
    std::uint8_t fMemoryClass;
    std::uint8_t fSlotClass;
};

} // namespace Kesto
