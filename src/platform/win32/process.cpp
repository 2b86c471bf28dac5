#include "platform/process.h"

#include "platform/win32/late_function.h"

#include <commctrl.h>

namespace Platform {

// Looked up by name, since systems before version 6 don't have the function.
void MakeProcessDpiAware()
{
    if (const auto set = FindUserFunction<BOOL WINAPI()>("SetProcessDPIAware"))
        set();
}

void ReadyCommonControls()
{
    constexpr DWORD kAllClasses = 0x7ff;
    const INITCOMMONCONTROLSEX request{sizeof request, kAllClasses};
    InitCommonControlsEx(&request);
}

} // namespace Platform
