// A page for each class that a layout can name: a picture, how it is written, and its keys.
#pragma once

#include <filesystem>

namespace Vex {

// Writes CLASS.md and CLASS.png for each class into the folder, which it makes. Throws
// std::runtime_error when one can't be written.
void WriteClassPages(const std::filesystem::path& folder);

} // namespace Vex
