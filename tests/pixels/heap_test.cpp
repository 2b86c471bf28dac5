// Slots, handles, free lists, eviction and the budget.
#include "foundation/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/virtual_tile_array.h"

#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <stdexcept>

namespace {

using Kesto::CVirtualHeap;
using Kesto::CVirtualHeapLimits;
using Kesto::CVirtualTile;
using Kesto::CVirtualTileArray;
using Kesto::TileClassBytes;
using ::testing::ElementsAre;
using Testing::LyingDisk;

constexpr std::uint64_t kKiB = 1024;

class Heap : public ::testing::Test {
protected:
    LyingDisk& disk = LyingDisk::Reset();

    // Locks and unlocks a tile after filling its bytes.
    static void Write(CVirtualTileArray& array, std::uint32_t index, int value)
    {
        void* pointer = nullptr;
        array.Lock(index, pointer, false);
        std::memset(pointer, value, TileClassBytes(array.GetMemoryClass()));
        array.Unlock(index, pointer, true, false);
    }

    static int FirstByte(CVirtualTileArray& array, std::uint32_t index)
    {
        void* pointer = nullptr;
        array.Lock(index, pointer, false);
        const int value = *static_cast<const std::uint8_t*>(pointer);
        array.Unlock(index, pointer, false, false);
        return value;
    }

    // The first bytes of what was written to the disk, in order.
    std::vector<std::uint64_t> WrittenPositions() const
    {
        std::vector<std::uint64_t> positions;
        for (const Testing::Access& write : disk.writes)
            positions.push_back(write.position);
        return positions;
    }
};

TEST_F(Heap, ClassesAreHalfwayDoublingsOf256Bytes)
{
    EXPECT_EQ(TileClassBytes(0), 256U);
    EXPECT_EQ(TileClassBytes(15), 8U << 20);
    EXPECT_EQ(Kesto::GetSlotClass(6), 0);
    EXPECT_EQ(Kesto::GetSlotClass(7), 1);
    EXPECT_EQ(Kesto::GetSlotClass(15), 9);
}

TEST_F(Heap, BeginsWithHalfTheMemoryButAtLeast16MiB)
{
    EXPECT_GE(CVirtualHeap().Budget(), 0x1000000U);
    EXPECT_EQ(CVirtualHeap().Budget(), CVirtualHeapLimits::StartBudget());
}

TEST_F(Heap, CarvesAtLeast64KiBAndHandsTilesOutInTheOrderOfTheirSlots)
{
    CVirtualHeap heap;
    const CVirtualTile* const first = heap.AcquireTile(2, 2, 3);
    const CVirtualTile* const second = heap.AcquireTile(2, 2, 3);
    EXPECT_EQ(first->fHandle, 0U);
    EXPECT_EQ(second->fHandle, 4U); // 1 KiB further, in units of 256
    EXPECT_EQ(heap.Files()[0]->UsedSize(), 64 * kKiB);
    EXPECT_EQ(heap.PreallocateTiles(2, 10), 62U);
    EXPECT_EQ(heap.AcquireTile(9, 9, 1)->fHandle, 256U);
    EXPECT_EQ(heap.Files()[0]->UsedSize(), (64 + 128) * kKiB);
    EXPECT_EQ(heap.PreallocateTiles(10, 3), 3U);
    EXPECT_EQ(disk.files.begin()->second.size(), (64 + 128 + 3 * 256) * kKiB);
}

TEST_F(Heap, GoesOnInTheNextFileAndThenHasNoMoreTiles)
{
    disk.AddVolume("/full", 0x800000 + 100); // its reserve alone
    disk.AddVolume("/w", 0x800000 + 200 * kKiB);
    CVirtualHeap heap({.fFileSize = 128 * kKiB, .fFileCount = 5});
    disk.volumes["/v"].freeBytes = 0; // gone since
    std::vector<std::uint32_t> files;
    for (int i = 0; i < 3; ++i)
        files.push_back(heap.AcquireTile(8, 8, 2)->fHandle >> 28);
    const auto last = heap.AcquireTile(8, 8, 1);
    files.push_back(last->fHandle >> 28);
    EXPECT_EQ(files[0], files[1]);
    EXPECT_EQ(files[2], files[3]);
    EXPECT_NE(files[0], files[2]);
    Kesto::CVirtualFile* file = nullptr;
    std::uint64_t offset = 0;
    heap.LocateTile(last->fHandle, file, offset);
    EXPECT_EQ(file, heap.Files()[files[3]].get());
    EXPECT_EQ(offset, 64 * kKiB);

    for (auto& volume : disk.volumes)
        volume.second.freeBytes = 0x800000;
    try {
        for (int i = 0; i < 100; ++i)
            heap.AcquireTile(8, 8, 1);
        FAIL() << "there was room for 100 tiles more";
    } catch (const Kesto::CError& error) {
        EXPECT_EQ(error.ErrorText(), Kesto::CText("$$$/Kesto/VirtualHeap/AcquireTileError=No more virtual tiles can be "
                                                  "allocated."));
    }
}

TEST_F(Heap, EndsAFileWhereAHandleEnds)
{
    disk.volumes["/v"].freeBytes = std::uint64_t{1} << 40;
    CVirtualHeap heap({.fFileSize = 256 * kKiB, .fFileCount = 2});
    std::vector<std::uint32_t> handles;
    for (int i = 0; i < 4; ++i)
        handles.push_back(heap.AcquireTile(9, 9, 1)->fHandle);
    EXPECT_THAT(handles, ElementsAre(0U, 512U, 0x10000000U, 0x10000000U + 512U));
    EXPECT_THROW(heap.AcquireTile(9, 9, 1), Kesto::CError);
    EXPECT_THROW(heap.AcquireTile(0, 0, 1), Kesto::CError);
}

TEST_F(Heap, HandsTheTileReleasedLastOutFirst)
{
    CVirtualHeap heap;
    CVirtualTile* const a = heap.AcquireTile(8, 8, 3);
    CVirtualTile* const b = heap.AcquireTile(8, 8, 1);
    heap.ReleaseTile(a);
    heap.ReleaseTile(b);
    heap.ReleaseTile(nullptr);
    EXPECT_EQ(heap.AcquireTile(8, 8, 1), b);
    EXPECT_EQ(heap.AcquireTile(8, 8, 1), a);
    EXPECT_NE(heap.AcquireTile(8, 8, 1), nullptr); // the third of the chain
}

TEST_F(Heap, RefusesClassesThatWouldLeaveTheBlock)
{
    CVirtualHeap heap;
    EXPECT_THROW(heap.AcquireTile(3, 4, 1), std::logic_error);
    EXPECT_THROW(heap.AcquireTile(16, 4, 1), std::logic_error);
    EXPECT_THROW(heap.PreallocateTiles(16, 4), std::logic_error);
}

TEST_F(Heap, EvictsTheOldestUnlockedTilesSavingTheDirtyOnes)
{
    CVirtualHeap heap({.fBudget = 4 * 64 * kKiB});
    CVirtualTileArray array(8, false, heap);
    array.Resize(8);
    void* held = nullptr;
    array.Lock(0, held, false);
    for (std::uint32_t i = 1; i < 4; ++i)
        Write(array, i, static_cast<int>(i));
    void* clean = nullptr;
    array.Lock(1, clean, false);
    array.Flush(1);
    EXPECT_THAT(WrittenPositions(), ElementsAre(64 * kKiB));
    array.Unlock(1, clean, false, false);
    array.Touch(2); // the order is 0 (locked), 1, 3, 2 now

    Write(array, 4, 4); // evicts 1, which is saved already
    EXPECT_THAT(WrittenPositions(), ElementsAre(64 * kKiB));
    EXPECT_EQ(array.GetTile(1)->fBlock, nullptr);
    Write(array, 5, 5); // evicts 3
    EXPECT_THAT(WrittenPositions(), ElementsAre(64 * kKiB, 3 * 64 * kKiB));
    EXPECT_NE(array.GetTile(2)->fBlock, nullptr);
    EXPECT_EQ(heap.AllocatedBytes(), 4 * 64 * kKiB);
    EXPECT_EQ(FirstByte(array, 3), 3);
    EXPECT_EQ(FirstByte(array, 1), 1);
    array.Unlock(0, held, false, false);
}

TEST_F(Heap, GoesOverTheBudgetRatherThanFailWhenAllIsLocked)
{
    CVirtualHeap heap({.fBudget = 2 * 64 * kKiB});
    CVirtualTileArray array(8, false, heap);
    array.Resize(3);
    std::array<void*, 3> pointers{};
    for (std::uint32_t i = 0; i < 3; ++i)
        array.Lock(i, pointers[i], false);
    EXPECT_EQ(heap.AllocatedBytes(), 3 * 64 * kKiB);
    EXPECT_EQ(heap.EvictBytes(1), 0U);
    void* again = nullptr;
    array.Lock(0, again, false);
    array.Unlock(0, again, false, false);
    EXPECT_EQ(heap.EvictBytes(1), 0U) << "unlocked once of twice";
    for (std::uint32_t i = 0; i < 3; ++i)
        array.Unlock(i, pointers[i], false, false);
    EXPECT_EQ(heap.EvictBytes(64 * kKiB + 1), 2 * 64 * kKiB);
    heap.SetBudget(64 * kKiB);
    EXPECT_EQ(heap.AllocatedBytes(), 64 * kKiB);
}

TEST_F(Heap, GivesTheSmallestFreeBlocksBackFirst)
{
    CVirtualHeap heap;
    CVirtualTileArray small(2, false, heap);
    CVirtualTileArray large(8, false, heap);
    small.Resize(4);
    large.Resize(2);
    for (std::uint32_t i = 0; i < 4; ++i)
        Write(small, i, 1);
    Write(large, 0, 1);
    Write(large, 1, 1);
    small.ReleaseAll();
    large.ReleaseAll();
    EXPECT_EQ(heap.UnusedBytes(), 4 * kKiB + 128 * kKiB);
    EXPECT_EQ(heap.FreeBlockBytes(1), kKiB);
    EXPECT_EQ(heap.FreeBlockBytes(3 * kKiB + 1), 3 * kKiB + 64 * kKiB);
    EXPECT_EQ(heap.AllocatedBytes(), 64 * kKiB);
}

TEST_F(Heap, StepsAsideWithSomeSlack)
{
    for (const auto& [bytes, freed] : std::map<std::uint64_t, std::uint64_t>{
             {1, 5 * kKiB}, {80 * kKiB, 85 * kKiB}, {1024 * kKiB, (1024 + 64) * kKiB}, {2048 * kKiB, 2112 * kKiB}}) {
        CVirtualHeap heap;
        CVirtualTileArray array(2, false, heap);
        array.Resize(4096);
        for (std::uint32_t i = 0; i < 4096; ++i)
            Write(array, i, 1);
        heap.Reserve(bytes);
        EXPECT_EQ(4096 * kKiB - heap.AllocatedBytes(), freed) << bytes;
    }
}

TEST_F(Heap, GivesUpTheDataOfDiscardableTiles)
{
    CVirtualHeap heap;
    CVirtualTileArray array(8, true, heap);
    array.Resize(1);
    EXPECT_EQ(array.GetSlotClass(), 2);
    Write(array, 0, 7);
    EXPECT_EQ(heap.EvictBytes(1), 64 * kKiB);
    EXPECT_TRUE(disk.writes.empty());
    EXPECT_TRUE(array.GetTile(0)->Has(CVirtualTile::kSaved));
    EXPECT_EQ(FirstByte(array, 0), 0) << "the head of the block is what the small slot holds";
    ASSERT_EQ(disk.reads.size(), 1U);
    EXPECT_EQ(disk.reads[0].size, kKiB);
}

TEST_F(Heap, NeverReadsATileBackThatWasNeverSaved)
{
    CVirtualHeap heap;
    CVirtualTileArray array(4, false, heap);
    array.Resize(2);
    void* pointer = nullptr;
    array.Lock(0, pointer, false);
    array.Unlock(0, pointer, false, true);
    array.Unlock(0, pointer, true, true); // without effect: the pointer is null already
    EXPECT_EQ(heap.EvictBytes(1), 4 * kKiB);
    FirstByte(array, 0);
    EXPECT_TRUE(disk.reads.empty());
    EXPECT_TRUE(disk.writes.empty());
}

TEST_F(Heap, PrefersTheInstalledAllocator)
{
    struct Allocator : Kesto::CVirtualAllocator {
        void* Allocate(std::size_t size) override { return size == kKiB ? memory.data() : nullptr; }
        void Free(void* freed) override { freedOwn = freed == memory.data(); }
        std::vector<std::byte> memory = std::vector<std::byte>(kKiB);
        bool freedOwn = false;
    };
    const auto allocator = std::make_shared<Allocator>();
    CVirtualHeap heap;
    CVirtualTileArray array(2, false, heap);
    CVirtualTileArray other(3, false, heap);
    array.Resize(1);
    other.Resize(1);
    Kesto::CVirtualAllocator::Install(allocator);
    Write(array, 0, 5);
    Write(other, 0, 6); // null from the allocator: the process heap is asked
    Kesto::CVirtualAllocator::Install(nullptr);
    EXPECT_EQ(allocator->memory[kKiB - 1], std::byte{5});
    heap.MakeRoom(100 * kKiB);
    EXPECT_TRUE(allocator->freedOwn);
    EXPECT_EQ(heap.AllocatedBytes(), 0U);
    EXPECT_EQ(FirstByte(array, 0), 5);
}

TEST_F(Heap, LeavesArraysThatOutliveItWithoutTiles)
{
    auto heap = std::make_unique<CVirtualHeap>();
    CVirtualTileArray first(2, false, *heap);
    CVirtualTileArray second(2, false, *heap);
    first.Resize(2);
    first.Realize();
    EXPECT_NE(first.GetTile(1), nullptr);
    heap.reset();
    EXPECT_EQ(first.GetTile(1), nullptr);
    void* pointer = nullptr;
    EXPECT_THROW(first.Lock(0, pointer, false), std::logic_error);
}

TEST_F(Heap, RefusesWhatIsOutsideAnArray)
{
    CVirtualHeap heap;
    CVirtualTileArray array(0, false, heap);
    array.Resize(2);
    void* pointer = nullptr;
    EXPECT_THROW(array.Lock(2, pointer, false), std::logic_error);
    array.Lock(1, pointer, false);
    void* copy = pointer;
    array.Unlock(1, pointer, false, false);
    EXPECT_THROW(array.Unlock(1, copy, false, false), std::logic_error);
    for (int i = 0; i < 0xffff; ++i)
        array.Lock(0, pointer, false);
    EXPECT_THROW(array.Lock(0, pointer, false), std::logic_error);
}

} // namespace
