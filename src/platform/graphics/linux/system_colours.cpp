#include "platform/graphics/system_colours.h"

namespace Platform {

// A Linux desktop has no such table that all programs read.
std::optional<Colour> SystemColour(int)
{
    return std::nullopt;
}

} // namespace Platform
