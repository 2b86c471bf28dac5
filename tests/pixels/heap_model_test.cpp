// Random use of the heap against a plain model of what each tile holds, on a sound and on a failing disk.
#include "foundation/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/virtual_tile_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <random>

namespace {

using Kesto::CVirtualHeap;
using Kesto::CVirtualTileArray;
using Testing::LyingDisk;

constexpr std::uint8_t kMostClass = 5;

using Bytes = std::vector<std::uint8_t>;

struct Lock {
    std::uint32_t index;
    void* pointer;
};

// An array, and what a plain one would hold. Nothing is known of a tile until it is unlocked dirty.
struct ModelArray {
    ModelArray(std::uint8_t memoryClass, bool discard, CVirtualHeap& heap)
        : tiles(memoryClass, discard, heap), discardable(discard)
    {
    }

    std::size_t TileBytes() const { return static_cast<std::size_t>(Kesto::TileClassBytes(tiles.GetMemoryClass())); }
    bool IsLocked(std::uint32_t index) const
    {
        return std::ranges::any_of(locks, [&](const Lock& lock) { return lock.index == index; });
    }

    CVirtualTileArray tiles;
    bool discardable;
    std::vector<std::optional<Bytes>> expected;
    std::vector<Lock> locks;
};

class Player {
public:
    Player(std::uint32_t seed, const Kesto::CVirtualHeapLimits& limits, int faultsPerThousand)
        : fRandom(seed), fHeap(limits), fFaults(faultsPerThousand), fHighest(limits.fBudget)
    {
        LyingDisk& disk = LyingDisk::Get();
        const auto sometimes = [this] { return Below(1000) < fFaults; };
        disk.failsLength = disk.failsWrite = disk.failsRead = disk.cutsRead = sometimes;
    }

    // A step that the disk stops must have changed nothing that the model knows of.
    void Step()
    {
        try {
            TakeStep();
        } catch (const Kesto::CException&) {
            ++fFailures;
            ASSERT_GT(fFaults, 0);
        }
        fHighest = std::max({fHighest, fHeap.Budget(), LockedBytes() + Kesto::TileClassBytes(kMostClass)});
        ASSERT_LE(fHeap.AllocatedBytes(), fHighest);
        ASSERT_LE(fHeap.UnusedBytes(), fHeap.AllocatedBytes());
    }

    // Everything that is known is there when the disk behaves again.
    void Finish()
    {
        fFaults = 0;
        for (auto& array : fArrays)
            for (std::uint32_t i = 0; i < array->expected.size(); ++i)
                Visit(*array, i, false, false);
        fArrays.clear();
        LyingDisk& disk = LyingDisk::Get();
        disk.failsLength = disk.failsWrite = disk.failsRead = disk.cutsRead = nullptr;
        EXPECT_EQ(fHeap.AllocatedBytes(), fHeap.UnusedBytes());
    }

    int Failures() const { return fFailures; }

private:
    int Below(int bound) { return static_cast<int>(fRandom() % static_cast<std::uint32_t>(bound)); }

    std::uint64_t LockedBytes() const
    {
        std::uint64_t bytes = 0;
        for (const auto& array : fArrays)
            for (std::uint32_t i = 0; i < array->expected.size(); ++i)
                bytes += array->IsLocked(i) ? array->TileBytes() : 0;
        return bytes;
    }

    void TakeStep()
    {
        const int step = Below(100);
        if (fArrays.empty() || step == 0)
            return AddArray();
        ModelArray& array = *fArrays[static_cast<std::size_t>(Below(static_cast<int>(fArrays.size())))];
        if (step == 1 && fArrays.size() > 4)
            return Drop(array);
        if (step < 5)
            return Resize(array);
        if (step < 7)
            return fHeap.SetBudget(static_cast<std::uint64_t>(Below(64)) * 1024);
        if (step == 7)
            return static_cast<void>(fHeap.EvictBytes(static_cast<std::uint64_t>(Below(32)) * 1024));
        if (step == 8)
            return fHeap.Reserve(static_cast<std::uint64_t>(Below(32)) * 1024);
        if (array.expected.empty())
            return;
        const auto index = static_cast<std::uint32_t>(Below(static_cast<int>(array.expected.size())));
        if (step < 15)
            return array.tiles.Flush(index);
        if (step < 20)
            return array.tiles.Touch(index);
        if (step < 30 && !array.locks.empty())
            return LetGo(array, static_cast<std::size_t>(Below(static_cast<int>(array.locks.size()))));
        if (step < 35)
            return Hold(array, index);
        Visit(array, index, step < 75, step % 2 == 0);
    }

    void AddArray()
    {
        if (fArrays.size() < 12)
            fArrays.push_back(
                std::make_unique<ModelArray>(static_cast<std::uint8_t>(Below(kMostClass + 1)), Below(4) == 0, fHeap));
    }

    void Drop(const ModelArray& array)
    {
        std::erase_if(fArrays, [&](const auto& one) { return one.get() == &array; });
    }

    void Resize(ModelArray& array)
    {
        const auto count = static_cast<std::uint32_t>(Below(40));
        array.tiles.Resize(count);
        array.expected.resize(count);
        std::erase_if(array.locks, [&](const Lock& lock) { return lock.index >= count; });
        if (Below(2) == 0)
            array.tiles.Realize();
    }

    // Locks a tile and checks it.
    void* Enter(ModelArray& array, std::uint32_t index, bool touch)
    {
        void* pointer = nullptr;
        array.tiles.Lock(index, pointer, touch);
        const std::optional<Bytes>& expected = array.expected[index];
        if (expected) {
            EXPECT_TRUE(std::equal(expected->begin(), expected->end(), static_cast<const std::uint8_t*>(pointer)));
        }
        return pointer;
    }

    void Visit(ModelArray& array, std::uint32_t index, bool write, bool touch)
    {
        void* pointer = Enter(array, index, touch);
        if (write) {
            Bytes bytes(array.TileBytes());
            std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(fRandom()); });
            std::ranges::copy(bytes, static_cast<std::uint8_t*>(pointer));
            array.expected[index] = std::move(bytes);
        }
        array.tiles.Unlock(index, pointer, write, touch);
        if (array.discardable && !array.IsLocked(index))
            array.expected[index].reset();
    }

    void Hold(ModelArray& array, std::uint32_t index) { array.locks.push_back({index, Enter(array, index, false)}); }

    void LetGo(ModelArray& array, std::size_t which)
    {
        Lock lock = array.locks[which];
        array.locks.erase(array.locks.begin() + static_cast<std::ptrdiff_t>(which));
        array.tiles.Unlock(lock.index, lock.pointer, false, Below(2) == 0);
        if (array.discardable && !array.IsLocked(lock.index))
            array.expected[lock.index].reset();
    }

    std::mt19937 fRandom;
    CVirtualHeap fHeap;
    int fFaults; // of a thousand calls of the disk
    std::uint64_t fHighest;
    int fFailures = 0;
    std::vector<std::unique_ptr<ModelArray>> fArrays;
};

class HeapModel : public ::testing::TestWithParam<std::uint32_t> {
protected:
    static int Play(std::uint32_t seed, const Kesto::CVirtualHeapLimits& limits, int faults)
    {
        LyingDisk::Reset();
        Player player(seed, limits, faults);
        for (int i = 0; i < 4000 && !HasFatalFailure(); ++i)
            player.Step();
        player.Finish();
        return player.Failures();
    }
};

TEST_P(HeapModel, HoldsUnderATinyBudget)
{
    Play(GetParam(), {.fBudget = 8 * 1024}, 0);
}

TEST_P(HeapModel, HoldsOverManySmallFiles)
{
    LyingDisk::Reset();
    Play(GetParam(), {.fBudget = 32 * 1024, .fFileSize = 192 * 1024}, 0);
}

TEST_P(HeapModel, HoldsOnADiskThatFails)
{
    EXPECT_GT(Play(GetParam(), {.fBudget = 8 * 1024}, 30), 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, HeapModel, ::testing::Range(1U, 9U));

} // namespace
