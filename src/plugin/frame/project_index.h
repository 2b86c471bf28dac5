// The small integer that tells the projects of a module apart; the module names its own.
#pragma once

#include <cstdint>

namespace Kesto {

enum class ProjectIndex : int32_t {};

} // namespace Kesto
