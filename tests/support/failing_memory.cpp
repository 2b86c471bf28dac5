#include "support/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int> gLeft = 0; // allocations up to the one that fails; 0: none does
std::atomic<bool> gIsCounted = false;
std::atomic<int> gCounted = 0;
std::atomic<int> gLive = 0;

void* Allocate(std::size_t size) noexcept
{
    gCounted += gIsCounted;
    if (gIsCounted && gLeft > 0 && --gLeft == 0)
        return nullptr;
    void* const memory = std::malloc(size != 0 ? size : 1);
    gLive += memory != nullptr;
    return memory;
}

void Free(void* memory) noexcept
{
    gLive -= memory != nullptr;
    std::free(memory);
}

void* AllocateOrThrow(std::size_t size)
{
    if (void* const memory = Allocate(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size)
{
    return AllocateOrThrow(size);
}

void* operator new[](std::size_t size)
{
    return AllocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

void operator delete(void* memory) noexcept
{
    Free(memory);
}

void operator delete[](void* memory) noexcept
{
    Free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    Free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    Free(memory);
}

namespace Testing {

FailingMemory::Counted::Counted()
{
    gIsCounted = true;
}

FailingMemory::Counted::~Counted()
{
    gIsCounted = false;
}

FailingMemory::FailingMemory(int at)
{
    gLeft = at;
}

FailingMemory::~FailingMemory()
{
    gLeft = 0;
}

bool FailingMemory::HasFailed() const
{
    return gLeft == 0;
}

int CountedAllocations()
{
    return gCounted;
}

int LiveAllocations()
{
    return gLive;
}

} // namespace Testing
