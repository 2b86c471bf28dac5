// The clock that TickCount shows the low bits of, which a program can hold.
#pragma once

#include <cstdint>

namespace Platform {

std::uint64_t ClockMilliseconds();

bool IsClockHeld();

// Has the held clock go on. Only while it is held.
void PassHeldTime(std::uint64_t milliseconds);

} // namespace Platform
