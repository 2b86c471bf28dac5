#include "platform/process.h"

#include <windows.h>

#include <commctrl.h>

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

// Looked up by name, since systems before version 6 don't have the function.
void MakeProcessDpiAware()
{
    using Function = BOOL(WINAPI*)();
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    const auto function = user != nullptr ? GetProcAddress(user, "SetProcessDPIAware") : nullptr;
    if (function != nullptr)
        reinterpret_cast<Function>(reinterpret_cast<void*>(function))();
}

void ReadyCommonControls()
{
    constexpr DWORD kAllClasses = 0x7ff;
    const INITCOMMONCONTROLSEX request{sizeof request, kAllClasses};
    InitCommonControlsEx(&request);
}

} // namespace Platform
