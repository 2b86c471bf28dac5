#include "platform/memory.h"

#include <windows.h>

namespace Platform {

uint64_t PhysicalMemory()
{
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    return GlobalMemoryStatusEx(&status) ? status.ullTotalPhys : 0;
}

} // namespace Platform
