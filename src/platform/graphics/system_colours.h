// The colours that the user has chosen for the whole system.
#pragma once

#include "platform/graphics/colour.h"

#include <optional>

namespace Platform {

// By the index of GetSysColor (15 is the face of buttons); nothing where the system has no such
// colours or no such index.
std::optional<Colour> SystemColour(int index);

} // namespace Platform
