// The process that this module lives in: its set-up, its number, and the file that this code was
// loaded from.
#pragma once

#include <cstdint>
#include <string>

namespace Platform {

// Tells the system that this process scales its own windows, where the system wants to know.
// Without effect elsewhere.
void MakeProcessDpiAware();

// Readies the system's common controls, all classes that a dialog can ask for. Without effect
// elsewhere.
void ReadyCommonControls();

// The number by which the operating system knows this process; no other running process has it.
std::uint32_t ProcessNumber();

// False when there certainly is no running process of that number on this machine.
bool ProcessMayRun(std::uint32_t number);

// The full path, UTF-8: of the module, or of the program that the code is linked into. Empty if the
// system won't tell.
std::string ModulePath();

// The folder of a path.
std::string FolderOf(const std::string& path);

} // namespace Platform
