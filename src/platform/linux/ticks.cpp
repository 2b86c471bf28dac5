#include "platform/ticks.h"

#include <ctime>

namespace Platform {

// The coarse clock goes by the system's ticks of a few milliseconds, and costs next to nothing to read.
std::uint32_t TickCount()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::uint32_t>(std::uint64_t(now.tv_sec) * 1000 + std::uint64_t(now.tv_nsec) / 1000000);
}

} // namespace Platform
