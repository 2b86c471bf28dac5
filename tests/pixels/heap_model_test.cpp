// Random use of the heap against a plain model of what each tile holds, on a sound and on a failing
// disk.
#include "foundation/errors/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/tiles/virtual_tile_array.h"
#include "support/testing.h"

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
    ModelArray(int memoryClass, bool discards, CVirtualHeap& heap)
        : tiles(static_cast<std::uint8_t>(memoryClass), discards, heap), discardable(discards)
    {
    }

    std::size_t TileBytes() const
    {
        return static_cast<std::size_t>(Kesto::TileClassBytes(tiles.GetMemoryClass()));
    }
    bool IsLocked(std::uint32_t index) const
    {
        return std::ranges::count(locks, index, &Lock::index) != 0;
    }

    void Unlock(Lock lock, bool dirty, bool touch)
    {
        tiles.Unlock(lock.index, lock.pointer, dirty, touch);
        if (discardable && !IsLocked(lock.index))
            expected[lock.index].reset();
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
        LyingDisk& disk = LyingDisk::Reset();
        disk.failsLength = disk.failsWrite = disk.failsRead =
            disk.cutsRead = [this] { return Below(1000) < fFaults; };
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
        fHighest =
            std::max({fHighest, fHeap.Budget(), LockedBytes() + Kesto::TileClassBytes(kMostClass)});
        ASSERT_LE(fHeap.AllocatedBytes(), fHighest);
        ASSERT_LE(fHeap.UnusedBytes(), fHeap.AllocatedBytes());
    }

    // Everything that is known is there when the disk behaves again. Returns how many steps failed.
    int Finish()
    {
        fFaults = 0;
        for (auto& array : fArrays)
            for (std::uint32_t i = 0; i < array->expected.size(); ++i)
                Visit(*array, i, false, false);
        fArrays.clear();
        LyingDisk& disk = LyingDisk::Get();
        disk.failsLength = disk.failsWrite = disk.failsRead = disk.cutsRead = nullptr;
        EXPECT_EQ(fHeap.AllocatedBytes(), fHeap.UnusedBytes());
        return fFailures;
    }

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
    std::size_t Any(std::size_t count)
    {
        return static_cast<std::size_t>(Below(static_cast<int>(count)));
    }
    std::uint64_t SomeKiB(int bound) { return static_cast<std::uint64_t>(Below(bound)) * 1024; }

    void TakeStep()
    {
        const int step = Below(100);
        if (fArrays.empty() || (step == 0 && fArrays.size() < 12)) {
            const int memoryClass = Below(kMostClass + 1);
            fArrays.push_back(std::make_unique<ModelArray>(memoryClass, Below(4) == 0, fHeap));
            return;
        }
        const std::size_t which = Any(fArrays.size());
        ModelArray& array = *fArrays[which];
        if (step == 1 && fArrays.size() > 4)
            return static_cast<void>(
                fArrays.erase(fArrays.begin() + static_cast<std::ptrdiff_t>(which)));
        if (step < 5)
            return Resize(array);
        if (step < 7)
            return fHeap.SetBudget(SomeKiB(64));
        if (step == 7)
            return static_cast<void>(fHeap.EvictBytes(SomeKiB(32)));
        if (step == 8)
            return fHeap.Reserve(SomeKiB(32));
        if (array.expected.empty())
            return;
        const auto index = static_cast<std::uint32_t>(Any(array.expected.size()));
        if (step < 15)
            return array.tiles.Flush(index);
        if (step < 20)
            return array.tiles.Touch(index);
        if (step < 30 && !array.locks.empty())
            return LetGo(array, Any(array.locks.size()));
        if (step < 35)
            return array.locks.push_back(Enter(array, index, false));
        Visit(array, index, step < 75, step % 2 == 0);
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
    static Lock Enter(ModelArray& array, std::uint32_t index, bool touch)
    {
        void* pointer = nullptr;
        array.tiles.Lock(index, pointer, touch);
        if (const std::optional<Bytes>& expected = array.expected[index]) {
            EXPECT_TRUE(std::equal(expected->begin(), expected->end(),
                                   static_cast<const std::uint8_t*>(pointer)));
        }
        return {index, pointer};
    }

    void Visit(ModelArray& array, std::uint32_t index, bool write, bool touch)
    {
        const Lock lock = Enter(array, index, touch);
        if (write) {
            Bytes bytes(array.TileBytes());
            std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(fRandom()); });
            std::ranges::copy(bytes, static_cast<std::uint8_t*>(lock.pointer));
            array.expected[index] = std::move(bytes);
        }
        array.Unlock(lock, write, touch);
    }

    void LetGo(ModelArray& array, std::size_t which)
    {
        const Lock lock = array.locks[which];
        array.locks.erase(array.locks.begin() + static_cast<std::ptrdiff_t>(which));
        array.Unlock(lock, false, Below(2) == 0);
    }

    std::mt19937 fRandom;
    CVirtualHeap fHeap;
    int fFaults;
    std::uint64_t fHighest;
    int fFailures = 0;
    std::vector<std::unique_ptr<ModelArray>> fArrays;
};

TEST(HeapModel, HoldsUnderTinyBudgetsOverManyFilesAndOnADiskThatFails)
{
    const struct {
        Kesto::CVirtualHeapLimits limits;
        int faults; // of a thousand calls of the disk
    } cases[] = {{{.fBudget = 8 * 1024}, 0},
                 {{.fBudget = 32 * 1024, .fFileSize = 192 * 1024}, 0},
                 {{.fBudget = 8 * 1024}, 30}};
    for (const auto& [limits, faults] : cases)
        for (std::uint32_t seed = 1; seed < 9; ++seed) {
            SCOPED_TRACE(seed);
            Player player(seed, limits, faults);
            for (int i = 0; i < 4000 && !HasFatalFailure(); ++i)
                player.Step();
            EXPECT_EQ(player.Finish() > 0, faults > 0);
        }
}

} // namespace
