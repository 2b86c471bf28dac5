// `vex new`: the folder that the author of a filter starts from.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Vex {

// Makes the folder `parent`/NAME with the files of a filter that builds and runs: one number, a
// dialog with a live preview. `version` is the kit's. Returns what it wrote. Throws
// std::runtime_error, with nothing written, for a name that isn't made as names of classes are, or
// whose folder is there already.
std::vector<std::filesystem::path> MakePlugin(const std::string& name, const std::string& version,
                                              const std::filesystem::path& parent);

} // namespace Vex
