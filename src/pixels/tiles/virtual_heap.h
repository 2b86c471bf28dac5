// CVirtualHeap pages tiles between memory and scratch files.
//
// It owns a set of scratch files and a budget of memory. A tile is a fixed-size piece of storage
// with a slot of its own in a scratch file; while it is used it holds a block of memory. Blocks
// that hold a tile are in the recency list, oldest first; the others wait in a free list of their
// class, and their memory stays allocated. Invariant: allocatedBytes counts all blocks,
// freeBlockBytes those in the free lists. The budget bounds allocatedBytes as far as tiles can be
// evicted: when all are locked, a block is allocated above it rather than failing.
//
// The process's heap is CServiceT<CVirtualHeap>. It serves one thread. Failures of the disk come as
// what CFilePort throws, and leave no tile with other data than it had: what could not be written
// stays resident, what could not be read stays in its slot, and the heap goes on.
#pragma once

#include "pixels/tiles/virtual_file.h"
#include "pixels/tiles/virtual_tile.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Kesto {

class CVirtualTileArray;

struct CVirtualHeapLimits {
    // Half of the machine's memory, at least 16 MiB.
    static std::uint64_t StartBudget();

    std::uint64_t fBudget = StartBudget();
    std::uint64_t fFileReserve = CVirtualFile::kReserve;
    std::uint64_t fFileSize = CVirtualFile::kMaximumSize; // at most this
    std::size_t fFileCount = 16;                          // at most this
};

class CVirtualHeap {
public:
    explicit CVirtualHeap(const CVirtualHeapLimits& limits = {});
    CVirtualHeap(const CVirtualHeap&) = delete;
    CVirtualHeap& operator=(const CVirtualHeap&) = delete;

    // Frees all blocks and tiles and deletes the scratch files. Arrays that still live lose their
    // tiles, and throw std::logic_error when they are used further.
    ~CVirtualHeap();

    // Opens the scratch files on the volumes of `folders`, or of the machine with null, and removes
    // what processes that crashed left there. Without effect when they are open. After a failure
    // they are all closed again.
    void Initialize(const std::vector<CFileSpec>* folders);
    bool IsInitialized() const { return fInitialized; }

    // Initialize, put off to the moment at which the first tile is wanted, so that nobody waits for
    // files in vain. An empty list means the volumes of the machine.
    void InitializeLater(std::vector<CFileSpec> folders) { fFolders = std::move(folders); }

    // Hands out a tile without a block. When no slot is free, files grow by `minimumCount` tiles or
    // by 64 KiB, whichever is more, from file 0 upward. The memory class is at least the slot
    // class. Throws CError when no file has room.
    CVirtualTile* AcquireTile(std::uint8_t memoryClass, std::uint8_t slotClass,
                              std::uint32_t minimumCount);

    // Tries to have `count` free tiles of a class at hand; returns how many there are.
    std::uint32_t PreallocateTiles(std::uint8_t slotClass, std::uint32_t count);

    // Takes a tile back with its block, whatever its locks; null is ignored.
    void ReleaseTile(CVirtualTile* tile);

    // Gives a tile a block with undefined bytes, unless it has one. Evicts the oldest tiles, saving
    // them first, and gives back free blocks as far as the budget asks for it. Throws CSystemError
    // with the code of exhausted memory.
    void AcquireBlock(CVirtualTile* tile);

    // Puts a tile's block, if it has one, into the free list. The data in it is lost.
    void ReleaseBlock(CVirtualTile* tile);

    // Makes a tile's block, if it has one, the newest.
    void TouchBlock(CVirtualTile* tile);

    // The file and the byte offset of a tile's slot.
    void LocateTile(std::uint32_t handle, CVirtualFile*& file, std::uint64_t& offset) const;

    // Move a slot's bytes between the file and the tile's block.
    void ReadSlot(CVirtualTile& tile);
    void WriteSlot(CVirtualTile& tile);

    // Evicts unlocked tiles, oldest first, until at least `bytes` are evicted or none is left;
    // returns the bytes evicted.
    std::uint64_t EvictBytes(std::uint64_t bytes);

    // Gives free blocks back to the system until at least `bytes` are, or none is left; returns the
    // bytes given back. Smallest first, which keeps the big blocks that are hard to find again.
    std::uint64_t FreeBlockBytes(std::uint64_t bytes);

    // Gives `bytes` back to the system, by eviction where the free blocks don't suffice.
    void MakeRoom(std::uint64_t bytes);

    // Gives back as much memory as somebody else is about to take, and a little more.
    void Reserve(std::uint64_t bytes);

    // Sets the limit of all block memory and shrinks to it.
    void SetBudget(std::uint64_t bytes);

    // Arrays tell of themselves while they live.
    void RegisterTileArray(CVirtualTileArray* array);
    void UnregisterTileArray(CVirtualTileArray* array);

    std::uint64_t Budget() const { return fBudget; }
    std::uint64_t AllocatedBytes() const { return fAllocatedBytes; }
    std::uint64_t UnusedBytes() const { return fFreeBlockBytes; } // the free blocks' part of it
    const std::vector<std::unique_ptr<CVirtualFile>>& Files() const { return fFiles; }

private:
    // Tiles that wait for use, in the order in which they are handed out.
    struct FreeTiles {
        CVirtualTile* fFirst = nullptr;
        CVirtualTile* fLast = nullptr;
        std::uint32_t fCount = 0;
    };

    void NeedFiles();
    void Carve(std::uint8_t slotClass, std::uint32_t count);
    void AddBlock(std::uint8_t memoryClass);
    void FreeBlock(CVirtualBlock* block);
    void Evict(CVirtualBlock* block);
    void LinkNewest(CVirtualBlock* block);
    void Unlink(CVirtualBlock* block);

    CVirtualHeapLimits fLimits;
    std::vector<std::unique_ptr<CVirtualFile>> fFiles;
    std::array<FreeTiles, kTileClassCount> fFreeTiles{}; // by slot class
    std::array<CVirtualBlock*, kTileClassCount>
        fFreeBlocks{};                     // by memory class; the heap owns them
    CVirtualBlock* fOldestBlock = nullptr; // these too
    CVirtualBlock* fNewestBlock = nullptr;
    std::uint64_t fAllocatedBytes = 0;
    std::uint64_t fFreeBlockBytes = 0;
    std::uint64_t fBudget;
    CVirtualTileArray* fFirstTileArray = nullptr;
    CVirtualTileArray* fLastTileArray = nullptr;
    std::vector<CFileSpec> fFolders; // for the first need of files
    bool fInitialized = false;
};

} // namespace Kesto
