// The file that this code was loaded from.
#pragma once

#include <string>

namespace Platform {

// The full path, UTF-8: of the module, or of the program that the code is linked into. Empty if the system won't tell.
std::string ModulePath();

// The folder of a path.
std::string FolderOf(const std::string& path);

} // namespace Platform
