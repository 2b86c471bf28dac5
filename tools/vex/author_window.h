// A layout's window for its author, on the display: it is built anew whenever the file changes, and
// an inspector tells of the view under the mouse.
//
// A text that is refused leaves the last good window where it is. Keys of the author's come before
// the window's own: F2 the inspector, F3 the next theme, F4 and Shift-F4 a larger and a smaller
// scale, F5 builds anew.
#pragma once

#include "vex/built_layout.h"

#include <cstdint>
#include <functional>
#include <string>

namespace Vex {

struct AuthorOptions {
    BuildOptions build;
    std::int32_t theme = 0;
    // Called with the text each time it has been read, before it is built; and with what refuses
    // it.
    std::function<void(const CSourceText& source)> read;
    std::function<void(const std::string& words)> refused;
};

// Returns when the window is closed. Throws std::runtime_error when the file can't be read or is
// refused at the start.
void RunAuthorWindow(const std::string& file, const AuthorOptions& options);

} // namespace Vex
