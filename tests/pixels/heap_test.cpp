// Slots, handles, free lists, eviction, the budget, and what a failing disk leaves.
#include "foundation/errors/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/tiles/virtual_pixmap.h"
#include "support/testing.h"

namespace {

using namespace Kesto;
using namespace Testing;
using ::testing::ElementsAre, ::testing::Property, ::testing::Throws;

constexpr std::uint64_t kKiB = 1024;

class Tiles : public CVirtualTileArray {
public:
    Tiles(std::uint8_t memoryClass, CVirtualHeap& heap, std::uint32_t count,
          bool discardable = false)
        : CVirtualTileArray(memoryClass, discardable, heap)
    {
        Resize(count);
    }

    void* Hold(std::uint32_t index)
    {
        void* pointer = nullptr;
        Lock(index, pointer, false);
        return pointer;
    }

    void Write(std::uint32_t index, int value)
    {
        void* pointer = Hold(index);
        std::memset(pointer, value, TileClassBytes(GetMemoryClass()));
        Unlock(index, pointer, true, false);
    }

    // Its number to each.
    void WriteAll()
    {
        for (std::uint32_t i = 0; i < GetCount(); ++i)
            Write(i, static_cast<std::uint8_t>(i));
    }

    // The value of all bytes, or -1 if they differ.
    int Read(std::uint32_t index)
    {
        void* pointer = Hold(index);
        const auto* const bytes = static_cast<const std::uint8_t*>(pointer);
        const std::uint64_t size = TileClassBytes(GetMemoryClass());
        const int value =
            std::count(bytes, bytes + size, *bytes) == static_cast<std::ptrdiff_t>(size) ? *bytes
                                                                                         : -1;
        Unlock(index, pointer, false, false);
        return value;
    }

    void ExpectAll()
    {
        for (std::uint32_t i = 0; i < GetCount(); ++i)
            EXPECT_EQ(Read(i), static_cast<std::uint8_t>(i)) << i;
    }
};

class Heap : public ::testing::Test {
protected:
    static auto At(std::uint64_t position) { return ::testing::Field(&Access::position, position); }

    LyingDisk& disk = LyingDisk::Reset();
};

TEST_F(Heap, CarvesAtLeast64KiBAndHandsTilesOutInTheOrderOfTheirSlots)
{
    CVirtualHeap heap;
    EXPECT_GE(heap.Budget(), 0x1000000U);
    EXPECT_EQ(heap.AcquireTile(2, 2, 3)->fHandle, 0U);
    EXPECT_EQ(heap.AcquireTile(2, 2, 3)->fHandle, 4U); // 1 KiB further, in units of 256
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
    std::array<std::uint32_t, 4> handles{};
    for (std::uint32_t& handle : handles)
        handle = heap.AcquireTile(8, 8, 2)->fHandle;
    EXPECT_EQ(handles[0] >> 28, handles[1] >> 28);
    EXPECT_EQ(handles[2] >> 28, handles[3] >> 28);
    EXPECT_NE(handles[0] >> 28, handles[2] >> 28);
    CVirtualFile* file = nullptr;
    std::uint64_t offset = 0;
    heap.LocateTile(handles[3], file, offset);
    EXPECT_EQ(file, heap.Files()[handles[3] >> 28].get());
    EXPECT_EQ(offset, 64 * kKiB);

    for (auto& volume : disk.volumes)
        volume.second.freeBytes = 0x800000;
    const auto acquireMany = [&heap] {
        for (int i = 0; i < 100; ++i)
            heap.AcquireTile(8, 8, 1);
    };
    const CText text(
        "$$$/Kesto/VirtualHeap/AcquireTileError=No more virtual tiles can be allocated.");
    EXPECT_THAT(acquireMany, Throws<CError>(Property(&CError::ErrorText, text)));
}

TEST_F(Heap, EndsAFileWhereAHandleEndsAndHandsTheTileReleasedLastOutFirst)
{
    disk.volumes["/v"].freeBytes = std::uint64_t{1} << 40;
    CVirtualHeap heap({.fFileSize = 256 * kKiB, .fFileCount = 2});
    std::vector<CVirtualTile*> tiles;
    for (const std::uint32_t handle : {0U, 512U, 0x10000000U, 0x10000000U + 512U}) {
        tiles.push_back(heap.AcquireTile(9, 9, 1));
        EXPECT_EQ(tiles.back()->fHandle, handle) << tiles.size();
    }
    EXPECT_THROW(heap.AcquireTile(9, 9, 1), CError);
    EXPECT_THROW(heap.AcquireTile(0, 0, 1), CError);
    for (CVirtualTile* const tile : {tiles[2], tiles[0], static_cast<CVirtualTile*>(nullptr)})
        heap.ReleaseTile(tile);
    EXPECT_EQ(heap.AcquireTile(9, 9, 1), tiles[0]);
    EXPECT_EQ(heap.AcquireTile(9, 9, 1), tiles[2]);
}

TEST_F(Heap, EvictsTheOldestUnlockedTilesSavingTheDirtyOnes)
{
    CVirtualHeap heap({.fBudget = 4 * 64 * kKiB});
    Tiles tiles(8, heap, 8);
    tiles.Hold(0);
    for (std::uint32_t i = 1; i < 4; ++i)
        tiles.Write(i, static_cast<int>(i));
    void* clean = tiles.Hold(1);
    tiles.Flush(1);
    EXPECT_THAT(disk.writes, ElementsAre(At(64 * kKiB)));
    tiles.Unlock(1, clean, false, false);
    tiles.Touch(2); // the order is 0 (locked), 1, 3, 2 now

    tiles.Write(4, 4); // evicts 1, which is saved already
    EXPECT_THAT(disk.writes, ElementsAre(At(64 * kKiB)));
    EXPECT_EQ(tiles.GetTile(1)->fBlock, nullptr);
    tiles.Write(5, 5); // evicts 3
    EXPECT_THAT(disk.writes, ElementsAre(At(64 * kKiB), At(3 * 64 * kKiB)));
    EXPECT_NE(tiles.GetTile(2)->fBlock, nullptr);
    EXPECT_EQ(heap.AllocatedBytes(), 4 * 64 * kKiB);
    EXPECT_EQ(tiles.Read(3), 3);
    EXPECT_EQ(tiles.Read(1), 1);
}

TEST_F(Heap, GoesOverTheBudgetRatherThanFailWhenAllIsLocked)
{
    CVirtualHeap heap({.fBudget = 2 * 64 * kKiB});
    Tiles tiles(8, heap, 3);
    std::array<void*, 4> pointers{};
    for (std::uint32_t i = 0; i < 4; ++i)
        pointers[i] = tiles.Hold(i % 3);
    EXPECT_EQ(heap.AllocatedBytes(), 3 * 64 * kKiB);
    EXPECT_EQ(heap.EvictBytes(1), 0U);
    tiles.Unlock(0, pointers[3], false, false);
    EXPECT_EQ(heap.EvictBytes(1), 0U) << "unlocked once of twice";
    for (std::uint32_t i = 0; i < 3; ++i)
        tiles.Unlock(i, pointers[i], false, false);
    EXPECT_EQ(heap.EvictBytes(64 * kKiB + 1), 2 * 64 * kKiB);
    heap.SetBudget(64 * kKiB);
    EXPECT_EQ(heap.AllocatedBytes(), 64 * kKiB);
}

TEST_F(Heap, GivesTheSmallestFreeBlocksBackFirst)
{
    CVirtualHeap heap;
    Tiles small(2, heap, 4);
    Tiles large(8, heap, 2);
    for (Tiles* const tiles : {&small, &large}) {
        tiles->WriteAll();
        tiles->ReleaseAll();
    }
    EXPECT_EQ(heap.UnusedBytes(), 4 * kKiB + 128 * kKiB);
    EXPECT_EQ(heap.FreeBlockBytes(1), kKiB);
    EXPECT_EQ(heap.FreeBlockBytes(3 * kKiB + 1), 3 * kKiB + 64 * kKiB);
    EXPECT_EQ(heap.AllocatedBytes(), 64 * kKiB);
}

TEST_F(Heap, StepsAsideWithSomeSlack)
{
    for (const auto& [bytes, freed] :
         std::map<std::uint64_t, std::uint64_t>{{1, 5 * kKiB},
                                                {80 * kKiB, 85 * kKiB},
                                                {1024 * kKiB, (1024 + 64) * kKiB},
                                                {2048 * kKiB, 2112 * kKiB}}) {
        CVirtualHeap heap;
        Tiles tiles(2, heap, 4096);
        tiles.WriteAll();
        heap.Reserve(bytes);
        EXPECT_EQ(4096 * kKiB - heap.AllocatedBytes(), freed) << bytes;
    }
}

TEST_F(Heap, GivesUpTheDataOfDiscardableTiles)
{
    CVirtualHeap heap;
    EXPECT_EQ(GetSlotClass(6), 0);
    EXPECT_EQ(GetSlotClass(15), 9);
    Tiles tiles(8, heap, 1, true);
    EXPECT_EQ(tiles.GetSlotClass(), 2);
    tiles.Write(0, 7);
    EXPECT_EQ(heap.EvictBytes(1), 64 * kKiB);
    EXPECT_TRUE(disk.writes.empty());
    EXPECT_TRUE(tiles.GetTile(0)->Has(CVirtualTile::kSaved));
    EXPECT_EQ(*static_cast<char*>(tiles.Hold(0)), 0)
        << "the head of the block is what the small slot holds";
    ASSERT_EQ(disk.reads.size(), 1U);
    EXPECT_EQ(disk.reads[0].size, kKiB);
}

TEST_F(Heap, NeverReadsATileBackThatWasNeverSaved)
{
    CVirtualHeap heap;
    Tiles tiles(4, heap, 2);
    void* pointer = tiles.Hold(0);
    tiles.Unlock(0, pointer, false, true);
    tiles.Unlock(0, pointer, true, true); // without effect: the pointer is null already
    EXPECT_EQ(heap.EvictBytes(1), 4 * kKiB);
    tiles.Hold(0);
    EXPECT_TRUE(disk.reads.empty());
    EXPECT_TRUE(disk.writes.empty());
}

TEST_F(Heap, PrefersTheInstalledAllocator)
{
    struct Allocator : CVirtualAllocator {
        void* Allocate(std::size_t size) override { return size == kKiB ? memory.data() : nullptr; }
        void Free(void* freed) override { freedOwn = freed == memory.data(); }
        std::vector<std::byte> memory = std::vector<std::byte>(kKiB);
        bool freedOwn = false;
    };
    const auto allocator = std::make_shared<Allocator>();
    CVirtualHeap heap;
    Tiles tiles(2, heap, 1);
    Tiles others(3, heap, 1);
    CVirtualAllocator::Install(allocator);
    tiles.Write(0, 5);
    others.Write(0, 6); // null from the allocator: the process heap is asked
    CVirtualAllocator::Install(nullptr);
    EXPECT_EQ(allocator->memory[kKiB - 1], std::byte{5});
    heap.MakeRoom(100 * kKiB);
    EXPECT_TRUE(allocator->freedOwn);
    EXPECT_EQ(heap.AllocatedBytes(), 0U);
    EXPECT_EQ(tiles.Read(0), 5);
}

TEST_F(Heap, RefusesWhatIsOutsideAnArrayOrABlockAndArraysThatOutliveIt)
{
    auto heap = std::make_unique<CVirtualHeap>();
    EXPECT_THROW(heap->AcquireTile(3, 4, 1), std::logic_error);
    EXPECT_THROW(heap->AcquireTile(16, 4, 1), std::logic_error);
    EXPECT_THROW(heap->PreallocateTiles(16, 4), std::logic_error);
    Tiles tiles(0, *heap, 2);
    Tiles others(2, *heap, 2);
    EXPECT_THROW(tiles.Hold(2), std::logic_error);
    void* pointer = tiles.Hold(1);
    void* copy = pointer;
    tiles.Unlock(1, pointer, false, false);
    EXPECT_THROW(tiles.Unlock(1, copy, false, false), std::logic_error);
    for (int i = 0; i < 0xffff; ++i)
        tiles.Hold(0);
    EXPECT_THROW(tiles.Hold(0), std::logic_error);
    others.Realize();
    EXPECT_NE(others.GetTile(1), nullptr);
    heap.reset();
    EXPECT_EQ(others.GetTile(1), nullptr);
    EXPECT_THROW(others.Hold(0), std::logic_error);
}

// Eight tiles of 4 KiB, of which four find room in memory.
class FailingDisk : public Heap {
protected:
    CVirtualHeap heap{{.fBudget = 4 * 4096}};
    Tiles tiles{4, heap, 8};
};

TEST_F(FailingDisk, KeepsWhatIsInMemoryOrInItsSlot)
{
    tiles.WriteAll();
    disk.failsWrite = [] { return true; };
    EXPECT_THAT([&] { tiles.Read(0); },
                Throws<CSystemError>(Property(&CSystemError::Code, kDiskFull)));
    EXPECT_THROW(heap.SetBudget(0), CSystemError);
    EXPECT_EQ(tiles.Read(7), 7);
    disk.failsWrite = nullptr;
    disk.failsRead = OnlyAt(0);
    EXPECT_THROW(tiles.Read(0), CSystemError);
    disk.cutsRead = OnlyAt(0);
    EXPECT_THROW(tiles.Read(0), CError);
    EXPECT_EQ(tiles.GetTile(0)->fLockCount, 0);
    tiles.ExpectAll();
}

TEST_F(FailingDisk, ThatRefusesToGrowTheFileCarvesNothing)
{
    disk.failsLength = OnlyAt(0);
    EXPECT_THROW(tiles.Write(0, 1), CSystemError);
    EXPECT_EQ(heap.Files()[0]->UsedSize(), 0U);
    CVirtualPixmap pixmap(3, 64, 64, 1, 4, false, true, heap);
    disk.volumes["/v"].freeBytes = 0;
    EXPECT_THROW(pixmap.SetSize(100 * 64, 64), CError);
    disk.volumes["/v"].freeBytes = 1 << 30;
    pixmap.SetSize(64, 64);
    tiles.WriteAll();
    tiles.ExpectAll();
}

} // namespace
