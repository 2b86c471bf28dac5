// A page for each class that a layout can name: a picture, the layout that it is of, and its keys.
#pragma once

#include <filesystem>

namespace Vex {

// Writes CLASS.md and CLASS.png for each class, and classes.md, which lists them, into the folder,
// which it makes. The layout of a class is CLASS.vex of the samples; one that is still to come
// needs none. Throws std::runtime_error for a sample that isn't there or has mistakes, and when a
// file can't be written.
void WriteClassPages(const std::filesystem::path& folder, const std::filesystem::path& samples);

} // namespace Vex
