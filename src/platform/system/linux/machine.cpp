#include "platform/system/machine.h"

#include "platform/system/linux/clock.h"

#include <atomic>
#include <chrono>
#include <ctime>
#include <thread>
#include <unistd.h>

namespace Platform {
namespace {

constexpr std::uint64_t kNotHeld = ~std::uint64_t{0};

std::atomic<std::uint64_t> gHeldClock = kNotHeld;

std::uint64_t Read(clockid_t clock)
{
    const std::uint64_t held = gHeldClock;
    if (held != kNotHeld)
        return held;
    timespec now{};
    clock_gettime(clock, &now);
    return std::uint64_t(now.tv_sec) * 1000 + std::uint64_t(now.tv_nsec) / 1000000;
}

} // namespace

uint64_t PhysicalMemory()
{
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    return pages > 0 && pageSize > 0
               ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(pageSize)
               : 0;
}

std::uint64_t ClockMilliseconds()
{
    return Read(CLOCK_MONOTONIC);
}

// The coarse clock goes by the system's ticks of a few milliseconds, and costs next to nothing to
// read.
std::uint32_t TickCount()
{
    return static_cast<std::uint32_t>(Read(CLOCK_MONOTONIC_COARSE));
}

bool HoldClock()
{
    gHeldClock = ClockMilliseconds();
    return true;
}

bool IsClockHeld()
{
    return gHeldClock != kNotHeld;
}

void PassHeldTime(std::uint64_t milliseconds)
{
    gHeldClock += milliseconds;
}

void Pause(std::uint32_t milliseconds)
{
    if (IsClockHeld())
        PassHeldTime(milliseconds);
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace Platform
