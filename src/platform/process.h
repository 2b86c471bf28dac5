// The process that this module lives in, and what it is set up with before it shows anything.
#pragma once

#include <cstdint>

namespace Platform {

// The number by which the operating system knows this process; no other running process has it.
std::uint32_t ProcessNumber();

// False when there certainly is no running process of that number on this machine.
bool ProcessMayRun(std::uint32_t number);

// Tells the system that this process scales its own windows, where the system wants to know. Without effect elsewhere.
void MakeProcessDpiAware();

// Readies the system's common controls, all classes that a dialog can ask for. Without effect elsewhere.
void ReadyCommonControls();

} // namespace Platform
