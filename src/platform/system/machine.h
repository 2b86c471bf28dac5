// The machine's memory and its clock for short spans.
#pragma once

#include <cstdint>

namespace Platform {

// Physical memory of the machine, in bytes.
uint64_t PhysicalMemory();

// Milliseconds since some moment before this process began; starts over after 49.7 days.
std::uint32_t TickCount();

// Lets that much time pass. Nothing is dispatched meanwhile.
void Pause(std::uint32_t milliseconds);

// Stops the clock of this process for good: it advances only by what the program waits, and waiting
// takes no time from now on (Pause, and the waits of the message queue). Timers come when they
// would. False where timers go by a clock of the system's alone.
bool HoldClock();

} // namespace Platform
