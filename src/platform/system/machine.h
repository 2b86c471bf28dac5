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

} // namespace Platform
