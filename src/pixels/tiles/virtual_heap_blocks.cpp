// The heap's memory: blocks, their recency, eviction.
#include "pixels/tiles/virtual_heap.h"

#include <algorithm>

namespace Kesto {

void CVirtualHeap::LinkNewest(CVirtualBlock* block)
{
    block->fNext = nullptr;
    block->fPrevious = fNewestBlock;
    (fNewestBlock != nullptr ? fNewestBlock->fNext : fOldestBlock) = block;
    fNewestBlock = block;
}

void CVirtualHeap::Unlink(CVirtualBlock* block)
{
    (block->fPrevious != nullptr ? block->fPrevious->fNext : fOldestBlock) = block->fNext;
    (block->fNext != nullptr ? block->fNext->fPrevious : fNewestBlock) = block->fPrevious;
    block->fNext = nullptr;
    block->fPrevious = nullptr;
}

// Puts a block that is in no list into the free list of its class.
void CVirtualHeap::FreeBlock(CVirtualBlock* block)
{
    CVirtualBlock*& head = fFreeBlocks[block->fMemoryClass];
    block->fTile = nullptr;
    block->fNext = head;
    head = block;
    fFreeBlockBytes += block->Bytes();
}

// Makes sure that there is a free block of a class.
void CVirtualHeap::AddBlock(std::uint8_t memoryClass)
{
    const std::uint64_t size = TileClassBytes(memoryClass);
    const std::uint64_t room = fBudget - std::min(fBudget, fAllocatedBytes);
    const std::uint64_t headroom = fFreeBlockBytes + room;
    if (headroom < size) {
        EvictBytes(size - headroom);
        if (fFreeBlocks[memoryClass] != nullptr)
            return;
    }
    if (room < size)
        FreeBlockBytes(size - room);
    FreeBlock(std::make_unique<CVirtualBlock>(memoryClass).release());
    fAllocatedBytes += size;
}

void CVirtualHeap::AcquireBlock(CVirtualTile* tile)
{
    if (tile->fBlock != nullptr)
        return;
    CVirtualBlock*& head = fFreeBlocks[tile->MemoryClass()];
    if (head == nullptr)
        AddBlock(tile->MemoryClass());
    CVirtualBlock* const block = head;
    head = block->fNext;
    fFreeBlockBytes -= block->Bytes();
    LinkNewest(block);
    block->fTile = tile;
    tile->fBlock = block;
}

void CVirtualHeap::ReleaseBlock(CVirtualTile* tile)
{
    CVirtualBlock* const block = tile->fBlock;
    if (block == nullptr)
        return;
    tile->fBlock = nullptr;
    Unlink(block);
    FreeBlock(block);
}

void CVirtualHeap::TouchBlock(CVirtualTile* tile)
{
    CVirtualBlock* const block = tile->fBlock;
    if (block == nullptr || block == fNewestBlock)
        return;
    Unlink(block);
    LinkNewest(block);
}

void CVirtualHeap::Evict(CVirtualBlock* block)
{
    block->fTile->Flush(*this);
    ReleaseBlock(block->fTile);
}

std::uint64_t CVirtualHeap::EvictBytes(std::uint64_t bytes)
{
    std::uint64_t evicted = 0;
    CVirtualBlock* next = nullptr;
    for (CVirtualBlock* block = fOldestBlock; block != nullptr && evicted < bytes; block = next) {
        next = block->fNext;
        if (!block->fTile->IsEvictable())
            continue;
        Evict(block);
        evicted += block->Bytes();
    }
    return evicted;
}

std::uint64_t CVirtualHeap::FreeBlockBytes(std::uint64_t bytes)
{
    std::uint64_t freed = 0;
    for (CVirtualBlock*& head : fFreeBlocks)
        while (head != nullptr && freed < bytes) {
            const std::unique_ptr<CVirtualBlock> block(head);
            head = block->fNext;
            freed += block->Bytes();
        }
    fFreeBlockBytes -= freed;
    fAllocatedBytes -= freed;
    return freed;
}

void CVirtualHeap::MakeRoom(std::uint64_t bytes)
{
    if (fFreeBlockBytes < bytes)
        EvictBytes(bytes - fFreeBlockBytes);
    FreeBlockBytes(bytes);
}

} // namespace Kesto
