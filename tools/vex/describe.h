// The description of a layout's views as JSON.
#pragma once

#include "vex/built_layout.h"

#include <nlohmann/json_fwd.hpp>

namespace Vex {

// "filter" and "bounds" of the window, then the keys of its root view as a host gets them, nested
// under "subViews"; and for tools "class" and "id" of each view. A view that the text doesn't name
// has the class "".
nlohmann::ordered_json DescriptionOf(const CBuiltLayout& layout);

} // namespace Vex
