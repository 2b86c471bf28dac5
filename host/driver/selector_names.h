// Names of the format selectors, for people.
#pragma once

#include <cstdint>

namespace Host {

// "read start" for 2; "(none)" for a number that is no selector.
const char* SelectorName(int16_t selector);

} // namespace Host
