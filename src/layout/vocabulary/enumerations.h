// The named enumerations of the language.
#pragma once

#include "layout/language/vex_properties.h"

#include <string_view>

namespace Kesto {

// The values of a named enumeration: "bool", "frame", "horizontal", "placement" or "vertical".
// Another name throws std::range_error "Enum name not found."
const CVexVariablePropertyList& VexEnumeration(std::string_view name);

} // namespace Kesto
