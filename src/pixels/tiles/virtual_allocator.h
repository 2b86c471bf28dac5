// CVirtualAllocator, another source of memory for tiles than the process heap, such as the host's
// buffers.
#pragma once

#include <cstddef>
#include <memory>

namespace Kesto {

class CVirtualAllocator {
public:
    CVirtualAllocator() = default;
    CVirtualAllocator(const CVirtualAllocator&) = delete;
    CVirtualAllocator& operator=(const CVirtualAllocator&) = delete;
    virtual ~CVirtualAllocator() = default;

    // Null is no failure: the process heap is asked next. Does not throw.
    virtual void* Allocate(std::size_t size) = 0;

    // Takes back what Allocate returned.
    virtual void Free(void* memory) = 0;

    // Makes the tile store prefer an allocator from now on; null goes back to the process heap.
    // Memory returns to the allocator that gave it, which lives until then.
    static void Install(std::shared_ptr<CVirtualAllocator> allocator);
    static const std::shared_ptr<CVirtualAllocator>& Installed();
};

} // namespace Kesto
