// The description of a layout's views as JSON.
#pragma once

#include "robot/own_windows.h"
#include "vex/built_layout.h"

#include <nlohmann/json_fwd.hpp>

namespace Vex {

// What descriptions say that a window belongs to.
inline constexpr std::string_view kProductName = "vex";

// "filter" and "bounds" of the window, then the keys of its root view as a host gets them, nested
// under "subViews"; and for tools "class" and "id" of each view. A view that the text doesn't name
// has the class "".
nlohmann::ordered_json DescriptionOf(const CBuiltLayout& layout);

// The names of the layout's classes for the views that are built now.
Host::ClassNamer ClassNamesOf(const CBuiltLayout& layout);

} // namespace Vex
