#include "plugin/suites/buffer_suite_allocator.h"

#include <limits>
#include <new>

namespace Kesto {

CBufferSuiteAllocator::~CBufferSuiteAllocator()
{
    for (const auto& [memory, buffer] : fBuffers)
        FreeBuffer(buffer);
}

void CBufferSuiteAllocator::FreeBuffer(HostBuffer buffer) const
{
    fSuite.Unlock(buffer);
    fSuite.Free(buffer);
}

void* CBufferSuiteAllocator::Allocate(std::size_t size)
{
    // The host's sizes have 32 bits.
    if (size > static_cast<std::size_t>(std::numeric_limits<int32_t>::max()))
        return nullptr;
    HostBuffer buffer = nullptr;
    if (fSuite.Allocate(static_cast<int64_t>(size), buffer) != kHostNoError || buffer == nullptr)
        return nullptr;
    // Locked for its whole life: callers keep addresses, the host knows handles.
    void* const memory = fSuite.Lock(buffer);
    if (memory == nullptr) {
        fSuite.Free(buffer);
        return nullptr;
    }
    try {
        fBuffers.emplace(memory, buffer);
    } catch (const std::bad_alloc&) {
        FreeBuffer(buffer);
        return nullptr;
    }
    return memory;
}

void CBufferSuiteAllocator::Free(void* memory)
{
    const auto found = fBuffers.find(memory);
    if (found == fBuffers.end())
        return;
    FreeBuffer(found->second);
    fBuffers.erase(found);
}

} // namespace Kesto
