// Tile memory of the host's buffer suite.
#include "plugin/buffer_suite_allocator.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

// The host's side: what is out, and what is locked.
struct Buffers {
    std::set<void*> out;
    std::set<void*> locked;
    bool refuses = false;
    bool givesNoAddress = false;
} gBuffers;

int16_t Allocate(int32_t size, HostBuffer* buffer)
{
    if (gBuffers.refuses)
        return kHostMemoryFull;
    void* const memory = ::operator new(static_cast<std::size_t>(size));
    gBuffers.out.insert(memory);
    *buffer = static_cast<HostBuffer>(memory);
    return 0;
}

void* Lock(HostBuffer buffer, uint8_t)
{
    if (gBuffers.givesNoAddress)
        return nullptr;
    gBuffers.locked.insert(buffer);
    return buffer;
}

void Unlock(HostBuffer buffer)
{
    EXPECT_EQ(gBuffers.locked.erase(buffer), 1U);
}

void Free(HostBuffer buffer)
{
    EXPECT_EQ(gBuffers.out.erase(buffer), 1U);
    ::operator delete(static_cast<void*>(buffer));
}

int32_t Space()
{
    return 1 << 20;
}

HostBufferSuite Suite()
{
    HostBufferSuite suite{};
    suite.version = kHostBufferSuiteVersion;
    suite.count = kHostBufferSuiteCount;
    suite.Allocate = Allocate;
    suite.Lock = Lock;
    suite.Unlock = Unlock;
    suite.Free = Free;
    suite.Space = Space;
    return suite;
}

class BufferSuiteAllocator : public ::testing::Test {
protected:
    BufferSuiteAllocator() { gBuffers = {}; }

    const HostBufferSuite suite = Suite();
};

TEST_F(BufferSuiteAllocator, KeepsBuffersLockedUntilTheyAreFreed)
{
    Kesto::CBufferSuiteAllocator allocator(&suite);
    void* const first = allocator.Allocate(100);
    void* const second = allocator.Allocate(200);
    EXPECT_EQ(gBuffers.locked, (std::set<void*>{first, second}));
    allocator.Free(first);
    EXPECT_EQ(gBuffers.out, std::set<void*>{second});
    allocator.Free(first); // without effect
    allocator.Free(nullptr);
    EXPECT_EQ(gBuffers.locked, std::set<void*>{second});
    allocator.Free(second);
}

TEST_F(BufferSuiteAllocator, GivesAllBackAtItsEnd)
{
    {
        Kesto::CBufferSuiteAllocator allocator(&suite);
        EXPECT_NE(allocator.Allocate(100), nullptr);
    }
    EXPECT_TRUE(gBuffers.out.empty());
}

TEST_F(BufferSuiteAllocator, AnswersNullForWhatTheHostDoesNotGive)
{
    Kesto::CBufferSuiteAllocator allocator(&suite);
    gBuffers.refuses = true;
    EXPECT_EQ(allocator.Allocate(100), nullptr);
    gBuffers.refuses = false;
    EXPECT_EQ(allocator.Allocate(std::size_t{1} << 31), nullptr);
    gBuffers.givesNoAddress = true;
    EXPECT_EQ(allocator.Allocate(100), nullptr);
    EXPECT_TRUE(gBuffers.out.empty());
    EXPECT_EQ(Kesto::CBufferSuiteAllocator(nullptr).Allocate(100), nullptr);
}

} // namespace
