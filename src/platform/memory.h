// The machine's memory.
#pragma once

#include <cstdint>

namespace Platform {

// Physical memory of the machine, in bytes.
uint64_t PhysicalMemory();

} // namespace Platform
