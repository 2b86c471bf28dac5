// The descriptors and lists that a module fills to describe something, such as its window.
//
// A descriptor belongs to whoever made it until it is freed, put into another one or appended to a
// list; from then on the other owns it, and the suite takes no more calls with it. A handle that
// the suite doesn't know is refused, never followed.
#pragma once

#include "lumograph/view_info.h"

#include <cstddef>

#include <nlohmann/json_fwd.hpp>

namespace Host {

const HostDescriptorSuite* DescriptorSuite();
const HostListSuite* ListSuite();

// What the descriptor holds, each value under its key's name and in the order of the puts. An
// object of the type "rectangle" becomes the array of its numbers. Null for a handle that isn't
// known.
nlohmann::ordered_json JsonOf(HostDescriptor descriptor);

// Descriptors and lists that belong to nobody but their maker.
size_t LooseDescriptors();

} // namespace Host
