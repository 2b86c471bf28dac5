#include "platform/ticks.h"

#include <ctime>

namespace Platform {

std::uint32_t TickCount()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(std::uint64_t(now.tv_sec) * 1000 + std::uint64_t(now.tv_nsec) / 1000000);
}

} // namespace Platform
