#include "platform/ticks.h"

#include <windows.h>

namespace Platform {

std::uint32_t TickCount()
{
    return GetTickCount();
}

} // namespace Platform
