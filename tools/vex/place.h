// Where the views of a layout come to lie.
#pragma once

#include "vex/built_layout.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

namespace Vex {

// The outermost view as an object: "class", "id" (its text, or ""), "left", "top", "width",
// "height" in units of the view around it, the outermost at 0, 0, and "children" in the order in
// which they were built. A view of an unknown class is none; its children are those of the window.
nlohmann::ordered_json PlacesOf(const CBuiltLayout& layout);

// The same for people, a line for each view.
void PrintPlaces(std::ostream& out, const nlohmann::ordered_json& view);

} // namespace Vex
