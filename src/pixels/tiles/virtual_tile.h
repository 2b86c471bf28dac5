// The records of the tile store: a tile, its place in a scratch file, and the memory that holds it
// for now.
//
// All storage comes in 16 size classes: class c means 256 << c bytes, from 256 bytes to 8 MiB.
#pragma once

#include "pixels/tiles/virtual_allocator.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Kesto {

class CVirtualHeap;
struct CVirtualBlock;

inline constexpr std::uint8_t kTileClassCount = 16;

constexpr std::uint64_t TileClassBytes(std::uint8_t sizeClass)
{
    return std::uint64_t{256} << sizeClass;
}

// The class of the file slots of a discardable array: small, since its tiles are never written.
constexpr std::uint8_t GetSlotClass(std::uint8_t memoryClass)
{
    return memoryClass <= 6 ? 0 : static_cast<std::uint8_t>(memoryClass - 6);
}

// A piece of storage that lives in memory while it is used and in its file slot when it is not.
// Tiles belong to the scratch file of their slot and never move. A tile goes from free to in use,
// resident, dirty, saved, and back to free.
struct CVirtualTile {
    static constexpr std::uint8_t kInUse = 1;
    static constexpr std::uint8_t kSaved = 2;      // the slot has a copy
    static constexpr std::uint8_t kDirty = 4;      // changed since the last save
    static constexpr std::uint8_t kUnsaveable = 8; // larger than its slot, so never written
    static constexpr std::uint8_t kSkipRead = 16;  // never read back
    static constexpr std::uint16_t kMostLocks = 0xffff;

    bool Has(std::uint8_t flag) const { return (fFlags & flag) != 0; }
    std::uint8_t MemoryClass() const { return fClasses & 15; }
    std::uint8_t SlotClass() const { return fClasses >> 4; }
    bool IsEvictable() const { return fBlock != nullptr && fLockCount == 0; }

    // Makes the tile resident; what a former save wrote is read back, and all else is undefined.
    // After a failure the tile is not resident.
    void Load(CVirtualHeap& heap);

    // Writes a resident, dirty tile to its slot. A tile that cannot be written counts as saved
    // nevertheless: its data is given up. After a failure the tile is resident and dirty as before.
    void Flush(CVirtualHeap& heap);

    CVirtualTile* fNext = nullptr;   // next free tile of the slot class
    CVirtualBlock* fBlock = nullptr; // the memory that holds the data, or null
    // The slot: bits 31..28 the file, bits 27..0 the offset divided by 256.
    std::uint32_t fHandle = 0;
    std::uint16_t fLockCount = 0; // a locked tile is never evicted
    std::uint8_t fFlags = 0;
    std::uint8_t fClasses = 0; // bits 3..0 memory class, bits 7..4 slot class
};

static_assert(sizeof(void*) != 8 || sizeof(CVirtualTile) == 24,
              "as many records stay in memory as there are tiles");

// One piece of memory: in the recency list while it holds a tile, in a free list while it does not.
struct CVirtualBlock {
    // Takes the memory from the installed allocator or else from the process heap. Throws
    // CSystemError with the code of exhausted memory.
    explicit CVirtualBlock(std::uint8_t memoryClass);
    CVirtualBlock(const CVirtualBlock&) = delete;
    CVirtualBlock& operator=(const CVirtualBlock&) = delete;
    ~CVirtualBlock();

    std::uint64_t Bytes() const { return TileClassBytes(fMemoryClass); }

    CVirtualBlock* fNext = nullptr;     // toward newer blocks, or the next in the free list
    CVirtualBlock* fPrevious = nullptr; // toward older blocks
    CVirtualTile* fTile = nullptr;      // the tile held, or null
    std::byte* fMemory = nullptr;
    std::shared_ptr<CVirtualAllocator>
        fAllocator; // where the memory came from; null is the process heap
    std::uint8_t fMemoryClass;
};

} // namespace Kesto
