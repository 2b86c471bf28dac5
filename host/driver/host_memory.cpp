#include "driver/host_memory.h"

#include "lumograph/results.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <vector>

struct HostBufferBlock {
    std::unique_ptr<uint8_t[]> bytes;
    int32_t size = 0;
    int32_t locks = 0;
};

struct HostHandleBlock : HostBufferBlock {};

namespace Host {
namespace {

MemoryBook gBook;
std::vector<std::unique_ptr<HostBufferBlock>> gBuffers;
std::vector<std::unique_ptr<HostHandleBlock>> gHandles;

// The place of a live block; a pointer that is none counts as a fault. Modules hold a handful of
// blocks at a time.
template <class Block>
auto FindBlock(std::vector<std::unique_ptr<Block>>& blocks, Block* block)
{
    const auto found =
        std::ranges::find(blocks, block, [](const auto& held) { return held.get(); });
    if (found == blocks.end())
        ++gBook.faults;
    return found;
}

template <class Block>
Block* AddBlock(std::vector<std::unique_ptr<Block>>& blocks, int32_t size)
try {
    auto block = std::make_unique<Block>();
    block->bytes = std::make_unique_for_overwrite<uint8_t[]>(static_cast<size_t>(size));
    block->size = size;
    blocks.push_back(std::move(block));
    return blocks.back().get();
} catch (const std::bad_alloc&) {
    return nullptr;
}

// The address of the bytes; the block's lock count goes up.
template <class Block>
void* LockBlock(std::vector<std::unique_ptr<Block>>& blocks, Block* block)
{
    if (FindBlock(blocks, block) == blocks.end())
        return nullptr;
    ++block->locks;
    return block->bytes.get();
}

int16_t Allocate(int32_t size, HostBuffer* buffer)
{
    if (size < 0 || !buffer)
        return kHostBadParameter;
    HostBuffer block = nullptr;
    if (gBook.used + size <= gBook.limit + gBook.headRoom)
        block = AddBlock(gBuffers, size);
    if (!block) {
        ++gBook.refused;
        return kHostMemoryFull;
    }
    gBook.used += size;
    gBook.peak = std::max(gBook.peak, gBook.used);
    ++gBook.buffers;
    *buffer = block;
    return kHostNoError;
}

void* Lock(HostBuffer buffer, uint8_t)
{
    void* address = LockBlock(gBuffers, buffer);
    if (address && buffer->locks == 1)
        ++gBook.locked;
    return address;
}

void Unlock(HostBuffer buffer)
{
    if (FindBlock(gBuffers, buffer) == gBuffers.end())
        return;
    if (buffer->locks == 0)
        ++gBook.faults;
    else if (--buffer->locks == 0)
        --gBook.locked;
}

void Free(HostBuffer buffer)
{
    const auto place = FindBlock(gBuffers, buffer);
    if (place == gBuffers.end())
        return;
    gBook.used -= buffer->size;
    --gBook.buffers;
    gBook.locked -= buffer->locks > 0 ? 1 : 0;
    gBuffers.erase(place);
}

int32_t Space()
{
    const int64_t space = gBook.limit - gBook.used;
    return static_cast<int32_t>(std::clamp<int64_t>(space, 0, std::numeric_limits<int32_t>::max()));
}

HostHandle NewHandle(int32_t size)
{
    HostHandle handle = size < 0 ? nullptr : AddBlock(gHandles, size);
    if (handle) {
        ++gBook.handles;
        gBook.handleBytes += size;
    }
    return handle;
}

void DisposeHandle(HostHandle handle)
{
    const auto place = FindBlock(gHandles, handle);
    if (place == gHandles.end())
        return;
    --gBook.handles;
    gBook.handleBytes -= handle->size;
    gHandles.erase(place);
}

void* LockHandle(HostHandle handle, uint8_t)
{
    return LockBlock(gHandles, handle);
}

void UnlockHandle(HostHandle handle)
{
    if (FindBlock(gHandles, handle) == gHandles.end())
        return;
    if (handle->locks == 0)
        ++gBook.faults;
    else
        --handle->locks;
}

int32_t HandleSize(HostHandle handle)
{
    return FindBlock(gHandles, handle) == gHandles.end() ? 0 : handle->size;
}

constexpr HostBufferSuite kBufferSuite = {
    kHostBufferSuiteVersion, kHostBufferSuiteCount, {}, Allocate, Lock, Unlock, Free, Space, {}};
constexpr HostHandleSuite kHandleSuite = {kHostHandleSuiteVersion,
                                          kHostHandleSuiteCount,
                                          {},
                                          NewHandle,
                                          DisposeHandle,
                                          LockHandle,
                                          UnlockHandle,
                                          HandleSize};

} // namespace

const HostBufferSuite* BufferSuite()
{
    return &kBufferSuite;
}

const HostHandleSuite* HandleSuite()
{
    return &kHandleSuite;
}

void SetMemoryLimit(int64_t bytes)
{
    gBook.limit = bytes;
}

void SetMemoryHeadRoom(int64_t bytes)
{
    gBook.headRoom = std::max<int64_t>(bytes, 0);
}

const MemoryBook& Memory()
{
    return gBook;
}

void ResetBuffers()
{
    gBuffers.clear();
    gBook.used = gBook.peak = 0;
    gBook.buffers = gBook.locked = gBook.refused = gBook.faults = 0;
}

void ReleaseHandles()
{
    gHandles.clear();
    gBook.handles = 0;
    gBook.handleBytes = 0;
}

} // namespace Host
