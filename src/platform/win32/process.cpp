#include "platform/process.h"

#include <windows.h>

#include <commctrl.h>

namespace Platform {

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
