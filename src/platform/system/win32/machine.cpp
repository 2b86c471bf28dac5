#include "platform/system/machine.h"

#include <windows.h>

namespace Platform {

uint64_t PhysicalMemory()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
}

std::uint32_t TickCount()
{
    return GetTickCount();
}

void Pause(std::uint32_t milliseconds)
{
    Sleep(milliseconds);
}

bool HoldClock()
{
    return false;
}

} // namespace Platform
