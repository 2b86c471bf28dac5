// CBufferSuiteAllocator gives the tile store memory of the host's buffer suite.
#pragma once

#include "pixels/tiles/virtual_allocator.h"
#include "plugin/suites/host_buffers.h"

#include <unordered_map>

namespace Kesto {

class CBufferSuiteAllocator final : public CVirtualAllocator {
public:
    // The suite has to outlive all memory taken here. One that is of no use gives none.
    explicit CBufferSuiteAllocator(const HostBufferSuite* suite) : fSuite(suite) {}

    // Gives what is still out back to the host.
    ~CBufferSuiteAllocator() override;

    void* Allocate(std::size_t size) override;
    void Free(void* memory) override;

private:
    void FreeBuffer(HostBuffer buffer) const;

    CHostBuffers fSuite;
    std::unordered_map<void*, HostBuffer> fBuffers; // by the address of the locked bytes
};

} // namespace Kesto
