// A picture of a layout, made without a screen.
#pragma once

#include "vex/built_layout.h"

#include <filesystem>

namespace Vex {

// Draws the views of a layout on their root. With `outline` the frames of all views are drawn over
// them, with their identifiers.
void Draw(const CBuiltLayout& layout, bool outline);

// The same, and writes a PNG. Throws std::runtime_error when the file can't be written.
void WritePicture(const CBuiltLayout& layout, const std::filesystem::path& path, bool outline);

// The window as it stands, outlined, with what its native children show. False if it isn't open.
bool WriteOutlinedPhotograph(const CBuiltLayout& layout, const std::filesystem::path& path);

} // namespace Vex
