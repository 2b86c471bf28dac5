#include "platform/graphics/system_colours.h"

#include <windows.h>

namespace Platform {

// An index without a colour has no brush either; its colour would read as black.
std::optional<Colour> SystemColour(int index)
{
    if (GetSysColorBrush(index) == nullptr)
        return std::nullopt;
    return ColourFromBGR(GetSysColor(index));
}

} // namespace Platform
