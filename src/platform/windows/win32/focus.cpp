#include "platform/windows/focus.h"

#include "platform/input/stopped_exception.h"
#include "platform/system/win32/handles.h"

#include <windows.h>

namespace Platform {

NativeWindow FocusedWindow()
{
    return Window(GetFocus());
}

void FocusWindow(NativeWindow window)
{
    SetFocus(Handle(window));
    ThrowStopped();
}

NativeWindow FrontmostWindow()
{
    return Window(GetActiveWindow());
}

bool IsProcessForeground()
{
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

} // namespace Platform
