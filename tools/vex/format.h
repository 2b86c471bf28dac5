// The canonical form of a layout text.
//
// Four columns for each level. A view is on one line if that has at most 100 columns and no
// line end in a string, and otherwise gives each property a line. An empty line separates
// assignments from views. Strings are kept byte for byte.
#pragma once

#include "vex/source_text.h"

#include <string>

namespace Vex {

// Throws std::runtime_error for a text that the parser refuses.
std::string FormatLayout(const CSourceText& source);

} // namespace Vex
