// What a layout text amounts to: the tree of its views with the values of every scope.
#pragma once

#include "vex/source_text.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

namespace Vex {

// An object for the outermost view: "class", "properties", "layout" (the scope that its class reads
// when it is built), and for one with a block "variables" and "children"; the outermost one has
// "textVariables" too, what the text assigns outside of it. Sizes are those that the text gives. An
// undefined value is null. Throws std::runtime_error for a text that the parser refuses.
nlohmann::json DumpLayout(const CSourceText& source);

// The same for people, a line for each value.
void PrintDump(std::ostream& out, const nlohmann::json& view);

} // namespace Vex
