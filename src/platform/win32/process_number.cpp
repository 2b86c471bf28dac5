#include "platform/process_number.h"

#include <windows.h>

namespace Platform {

std::uint32_t ProcessNumber()
{
    return GetCurrentProcessId();
}

bool ProcessMayRun(std::uint32_t number)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
    if (process == nullptr)
        return GetLastError() != ERROR_INVALID_PARAMETER;
    const bool ended = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    CloseHandle(process);
    return !ended;
}

} // namespace Platform
