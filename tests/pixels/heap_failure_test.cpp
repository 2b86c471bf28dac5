// What a failing disk leaves of the heap.
#include "foundation/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/virtual_pixmap.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using Kesto::CError;
using Kesto::CSystemError;
using Kesto::CVirtualHeap;
using Kesto::CVirtualPixmap;
using Testing::LyingDisk;
using Testing::OnlyAt;

constexpr std::int32_t kTiles = 8;

// A pixmap of eight tiles of 4 KiB, of which four find room in memory.
class FailingDisk : public ::testing::Test {
protected:
    // Fills a tile with `value` in memory; kept in the model when the heap took it.
    void Put(std::int32_t tile, int value)
    {
        void* pointer = nullptr;
        pixmap.LockTile(tile, 0, 0, pointer, true);
        std::memset(pointer, value, 4096);
        pixmap.UnlockTile(tile, 0, 0, pointer, true, false);
        model[static_cast<std::size_t>(tile)] = value;
    }

    // All bytes of a tile, if they are equal, else -1.
    int Take(std::int32_t tile)
    {
        void* pointer = nullptr;
        pixmap.LockTile(tile, 0, 0, pointer, false);
        const auto* const bytes = static_cast<const std::uint8_t*>(pointer);
        const bool equal = std::all_of(bytes, bytes + 4096, [&](std::uint8_t byte) { return byte == *bytes; });
        const int value = equal ? *bytes : -1;
        pixmap.UnlockTile(tile, 0, 0, pointer, false, false);
        return value;
    }

    void FillAll()
    {
        for (std::int32_t tile = 0; tile < kTiles; ++tile)
            Put(tile, tile + 1);
    }

    void ExpectAll()
    {
        for (std::int32_t tile = 0; tile < kTiles; ++tile)
            EXPECT_EQ(Take(tile), model[static_cast<std::size_t>(tile)]) << tile;
    }

    LyingDisk& disk = LyingDisk::Reset();
    CVirtualHeap heap{{.fBudget = 4 * 4096}};
    CVirtualPixmap pixmap{3, kTiles * 64, 64, 1, 4, false, false, heap};
    std::array<int, kTiles> model{};
};

TEST_F(FailingDisk, FullAtAnyWriteLosesNoTile)
{
    FillAll();
    for (int write = 0; write < kTiles; ++write) {
        disk.failsWrite = OnlyAt(write);
        int failures = 0;
        const auto attempt = [&](auto step) {
            try {
                step();
            } catch (const CSystemError& error) {
                EXPECT_EQ(error.Code(), Testing::kDiskFull);
                ++failures;
            }
        };
        for (std::int32_t tile = 0; tile < kTiles; ++tile)
            attempt([&] { Put(tile, 16 * (write + 1) + tile); });
        for (std::int32_t tile = 0; tile < kTiles; ++tile)
            attempt([&] { EXPECT_EQ(Take(tile), model[static_cast<std::size_t>(tile)]); });
        EXPECT_EQ(failures, 1);
        ExpectAll();
    }
}

TEST_F(FailingDisk, FullForGoodKeepsWhatIsInMemory)
{
    FillAll();
    disk.failsWrite = [] { return true; };
    EXPECT_THROW(Take(0), CSystemError);
    EXPECT_THROW(heap.SetBudget(0), CSystemError);
    EXPECT_EQ(Take(kTiles - 1), kTiles);
    disk.failsWrite = nullptr;
    ExpectAll();
}

TEST_F(FailingDisk, FailedReadLeavesTheTileInItsSlot)
{
    FillAll();
    disk.failsRead = OnlyAt(0);
    EXPECT_THROW(Take(0), CSystemError);
    EXPECT_EQ(pixmap.GetTile(0, 0, 0)->fLockCount, 0);
    ExpectAll();
}

TEST_F(FailingDisk, ShortReadIsAnErrorToo)
{
    FillAll();
    disk.cutsRead = OnlyAt(0);
    EXPECT_THROW(Take(0), CError);
    ExpectAll();
}

TEST_F(FailingDisk, ThatRefusesToGrowTheFileCarvesNothing)
{
    disk.failsLength = OnlyAt(0);
    EXPECT_THROW(Put(0, 1), CSystemError);
    EXPECT_EQ(heap.Files()[0]->UsedSize(), 0U);
    FillAll();
    ExpectAll();
}

TEST_F(FailingDisk, WithoutRoomEndsSetSizeWithTheTileError)
{
    FillAll();
    disk.volumes["/v"].freeBytes = 0;
    EXPECT_THROW(pixmap.SetSize(100 * 64, 64), CError);
    disk.volumes["/v"].freeBytes = 1 << 30;
    pixmap.SetSize(kTiles * 64, 64);
    ExpectAll();
}

} // namespace
