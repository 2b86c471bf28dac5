#include "platform/system/machine.h"

#include <chrono>
#include <ctime>
#include <thread>
#include <unistd.h>

namespace Platform {

uint64_t PhysicalMemory()
{
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0
               ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(pageSize)
               : 0;
}

// The coarse clock goes by the system's ticks of a few milliseconds, and costs next to nothing to
// read.
std::uint32_t TickCount()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::uint32_t>(std::uint64_t(now.tv_sec) * 1000 +
                                      std::uint64_t(now.tv_nsec) / 1000000);
}

void Pause(std::uint32_t milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace Platform
