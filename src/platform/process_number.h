// The number of the process that this module lives in.
#pragma once

#include <cstdint>

namespace Platform {

// The number by which the operating system knows this process; no other running process has it.
std::uint32_t ProcessNumber();

// False when there certainly is no running process of that number on this machine.
bool ProcessMayRun(std::uint32_t number);

} // namespace Platform
