#include "driver/host_memory.h"
#include "lumograph/results.h"
#include "support/testing.h"

namespace Host {
namespace {

class HostMemoryTest : public testing::Test {
protected:
    HostMemoryTest()
    {
        SetMemoryLimit(1000);
        SetMemoryHeadRoom(100);
        ResetBuffers();
        ReleaseHandles();
    }
    ~HostMemoryTest() override { ResetBuffers(); }

    const HostBufferSuite& fSuite = *BufferSuite();
    HostBuffer fBuffer = nullptr;
};

TEST_F(HostMemoryTest, SpaceTellsTheLimitAndTheHeadRoomLiesBeyondIt)
{
    EXPECT_EQ(fSuite.Space(), 1000);
    ASSERT_EQ(fSuite.Allocate(1000, &fBuffer), kHostNoError);
    EXPECT_EQ(fSuite.Space(), 0);
    HostBuffer scratch = nullptr, more = nullptr;
    EXPECT_EQ(fSuite.Allocate(100, &scratch), kHostNoError);
    EXPECT_EQ(fSuite.Space(), 0);
    EXPECT_EQ(fSuite.Allocate(1, &more), kHostMemoryFull);
    EXPECT_EQ(more, nullptr);
    EXPECT_EQ(Memory().refused, 1);
    fSuite.Free(fBuffer);
    EXPECT_EQ(fSuite.Space(), 900);
    EXPECT_EQ(Memory().peak, 1100);
}

TEST_F(HostMemoryTest, CountsWhatIsNotGivenBackAndMisuse)
{
    fSuite.Allocate(10, &fBuffer);
    EXPECT_NE(fSuite.Lock(fBuffer, 0), nullptr);
    fSuite.Lock(fBuffer, 0);
    fSuite.Unlock(fBuffer);
    EXPECT_EQ(Memory().locked, 1);
    EXPECT_EQ(Memory().buffers, 1);
    fSuite.Free(fBuffer);
    EXPECT_EQ(Memory().locked, 0);
    EXPECT_EQ(Memory().buffers, 0);
    EXPECT_EQ(Memory().faults, 0);

    fSuite.Allocate(10, &fBuffer);
    fSuite.Unlock(fBuffer);
    fSuite.Free(fBuffer);
    fSuite.Free(fBuffer);
    EXPECT_EQ(fSuite.Lock(fBuffer, 0), nullptr);
    HandleSuite()->Dispose(nullptr);
    EXPECT_EQ(Memory().faults, 4);
    EXPECT_EQ(fSuite.Allocate(-1, &fBuffer), kHostBadParameter);
}

TEST_F(HostMemoryTest, HandlesLiveUntilTheyAreDisposedOf)
{
    const HostHandleSuite& handles = *HandleSuite();
    HostHandle handle = handles.New(112);
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(handles.Size(handle), 112);
    EXPECT_NE(handles.Lock(handle, 0), nullptr);
    ResetBuffers();
    EXPECT_EQ(Memory().handleBytes, 112);
    handles.Unlock(handle);
    handles.Dispose(handle);
    EXPECT_EQ(Memory().handles, 0);
}

} // namespace
} // namespace Host
