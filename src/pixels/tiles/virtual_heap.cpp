#include "pixels/tiles/virtual_heap.h"

#include "foundation/errors/exceptions.h"
#include "pixels/tiles/scratch_files.h"
#include "pixels/tiles/virtual_tile_array.h"
#include "platform/system/machine.h"

#include <algorithm>
#include <stdexcept>

namespace Kesto {
namespace {

constexpr const char* kAcquireTileError =
    "$$$/Kesto/VirtualHeap/AcquireTileError=No more virtual tiles can be allocated.";

constexpr std::uint64_t kLeastBudget = 0x1000000;
constexpr std::uint64_t kMostSlack = 0x10000;
constexpr std::uint64_t kLeastSlack = 0x1000;

// A file grows by at least 64 KiB at a time.
constexpr std::uint32_t LeastCarved(std::uint8_t slotClass)
{
    return slotClass < 8 ? 1U << (8 - slotClass) : 1U;
}

} // namespace

std::uint64_t CVirtualHeapLimits::StartBudget()
{
    return std::max(Platform::PhysicalMemory() / 2, kLeastBudget);
}

CVirtualHeap::CVirtualHeap(const CVirtualHeapLimits& limits)
    : fLimits(limits), fBudget(limits.fBudget)
{
}

CVirtualHeap::~CVirtualHeap()
{
    while (fFirstTileArray != nullptr)
        fFirstTileArray->LoseHeap();
    FreeBlockBytes(fFreeBlockBytes);
    while (fOldestBlock != nullptr) {
        const std::unique_ptr<CVirtualBlock> block(fOldestBlock);
        Unlink(block.get());
    }
    while (!fFiles.empty())
        fFiles.pop_back();
}

// --- Scratch files
// ------------------------------------------------------------------------------------------

void CVirtualHeap::Initialize(const std::vector<CFileSpec>* folders)
{
    if (fInitialized)
        return;
    const std::vector<CFileSpec> plan =
        PlanScratchFiles(folders, fLimits.fFileSize, fLimits.fFileCount);
    for (const CFileSpec& folder : plan)
        if (&folder == &plan.front() || folder.Path() != (&folder)[-1].Path())
            RemoveStaleScratchFiles(folder);
    const std::string stem = ScratchFileStem(plan);
    std::vector<std::unique_ptr<CVirtualFile>> files; // one that can't be opened closes the others
    for (const CFileSpec& folder : plan) {
        const std::size_t index = files.size();
        files.push_back(std::make_unique<CVirtualFile>(folder, ScratchFileName(stem, index),
                                                       static_cast<std::uint32_t>(index),
                                                       fLimits.fFileReserve, fLimits.fFileSize));
    }
    fFiles = std::move(files);
    fInitialized = true;
}

void CVirtualHeap::NeedFiles()
{
    if (!fInitialized)
        Initialize(fFolders.empty() ? nullptr : &fFolders);
}

void CVirtualHeap::LocateTile(std::uint32_t handle, CVirtualFile*& file,
                              std::uint64_t& offset) const
{
    file = fFiles.at(handle >> 28).get();
    offset = std::uint64_t{handle & 0x0fffffff} << 8;
}

void CVirtualHeap::ReadSlot(CVirtualTile& tile)
{
    CVirtualFile* file = nullptr;
    std::uint64_t offset = 0;
    LocateTile(tile.fHandle, file, offset);
    file->Port().ReadAt(tile.fBlock->fMemory,
                        static_cast<std::size_t>(TileClassBytes(tile.SlotClass())), offset);
}

void CVirtualHeap::WriteSlot(CVirtualTile& tile)
{
    CVirtualFile* file = nullptr;
    std::uint64_t offset = 0;
    LocateTile(tile.fHandle, file, offset);
    file->Port().WriteAt(tile.fBlock->fMemory,
                         static_cast<std::size_t>(TileClassBytes(tile.SlotClass())), offset);
}

// --- Tiles
// ------------------------------------------------------------------------------------------

void CVirtualHeap::Carve(std::uint8_t slotClass, std::uint32_t count)
{
    NeedFiles();
    FreeTiles& list = fFreeTiles[slotClass];
    for (std::size_t i = 0; i < fFiles.size() && count != 0; ++i) {
        CVirtualTile* first = nullptr;
        CVirtualTile* last = nullptr;
        const std::uint32_t made = fFiles[i]->AcquireSlots(slotClass, count, first, last);
        if (made == 0)
            continue;
        (list.fLast != nullptr ? list.fLast->fNext : list.fFirst) = first;
        list.fLast = last;
        list.fCount += made;
        count -= made;
    }
}

CVirtualTile* CVirtualHeap::AcquireTile(std::uint8_t memoryClass, std::uint8_t slotClass,
                                        std::uint32_t minimumCount)
{
    if (memoryClass >= kTileClassCount)
        throw std::logic_error("Warning! (memoryClass < kTileClassCount)");
    if (slotClass > memoryClass)
        throw std::logic_error("Warning! (slotClass <= memoryClass)");
    FreeTiles& list = fFreeTiles[slotClass];
    if (list.fFirst == nullptr)
        Carve(slotClass, std::max(minimumCount, LeastCarved(slotClass)));
    if (list.fFirst == nullptr)
        throw CError(CText(kAcquireTileError));

    CVirtualTile* const tile = list.fFirst;
    list.fFirst = tile->fNext;
    if (list.fFirst == nullptr)
        list.fLast = nullptr;
    --list.fCount;
    tile->fNext = nullptr;
    tile->fClasses = static_cast<std::uint8_t>(slotClass << 4 | memoryClass);
    // The slot can't hold the tile: its data is given up when memory is short.
    if (slotClass < memoryClass)
        tile->fFlags |= CVirtualTile::kUnsaveable;
    tile->fFlags |= CVirtualTile::kInUse;
    return tile;
}

std::uint32_t CVirtualHeap::PreallocateTiles(std::uint8_t slotClass, std::uint32_t count)
{
    if (slotClass >= kTileClassCount)
        throw std::logic_error("Warning! (slotClass < kTileClassCount)");
    const FreeTiles& list = fFreeTiles[slotClass];
    if (list.fCount < count)
        Carve(slotClass, std::max(count - list.fCount, LeastCarved(slotClass)));
    return list.fCount;
}

void CVirtualHeap::ReleaseTile(CVirtualTile* tile)
{
    if (tile == nullptr)
        return;
    ReleaseBlock(tile);
    const std::uint8_t slotClass = tile->SlotClass();
    FreeTiles& list = fFreeTiles[slotClass];
    tile->fFlags = 0;
    tile->fLockCount = 0;
    tile->fClasses = static_cast<std::uint8_t>(slotClass << 4 | slotClass);
    tile->fNext = list.fFirst; // the next to be handed out: its slot was in use a moment ago
    list.fFirst = tile;
    if (list.fLast == nullptr)
        list.fLast = tile;
    ++list.fCount;
}

// --- Arrays
// ------------------------------------------------------------------------------------------

void CVirtualHeap::RegisterTileArray(CVirtualTileArray* array)
{
    array->fPrevious = fLastTileArray;
    array->fNext = nullptr;
    (fLastTileArray != nullptr ? fLastTileArray->fNext : fFirstTileArray) = array;
    fLastTileArray = array;
}

void CVirtualHeap::UnregisterTileArray(CVirtualTileArray* array)
{
    (array->fPrevious != nullptr ? array->fPrevious->fNext : fFirstTileArray) = array->fNext;
    (array->fNext != nullptr ? array->fNext->fPrevious : fLastTileArray) = array->fPrevious;
    array->fPrevious = nullptr;
    array->fNext = nullptr;
}

// --- The budget
// ------------------------------------------------------------------------------------------

void CVirtualHeap::Reserve(std::uint64_t bytes)
{
    MakeRoom(bytes + std::clamp(bytes / 16, kLeastSlack, kMostSlack));
}

void CVirtualHeap::SetBudget(std::uint64_t bytes)
{
    fBudget = bytes;
    if (fAllocatedBytes > bytes)
        MakeRoom(fAllocatedBytes - bytes);
}

} // namespace Kesto
