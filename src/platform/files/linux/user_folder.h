// Where a user has files.
#pragma once

#include <string>

namespace Platform {

// `name` in the user's home. Empty if there is none.
std::string HomePath(const char* name);

// The folder that an environment variable names, else the one of this name in the home.
std::string UserFolder(const char* variable, const char* name);

} // namespace Platform
