#include "platform/foreground.h"

#include <windows.h>

namespace Platform {

bool IsProcessForeground()
{
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

} // namespace Platform
