#include "platform/foreground.h"

namespace Platform {

bool IsProcessForeground()
{
    return true;
}

} // namespace Platform
