// The keys that names have. Those given out here have no character in the top byte, so none is a
// four-character key.
#pragma once

#include "lumograph/view_info.h"

#include <string>

namespace Host {

const HostStringIdSuite* StringIdSuite();

// The key of a name; a new one for a new name.
uint32_t KeyOfName(const std::string& name);

// The name that a key was made of, or else the key's four characters.
std::string NameOfKey(uint32_t key);

} // namespace Host
