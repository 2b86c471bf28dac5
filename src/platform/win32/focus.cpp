#include "platform/focus.h"

#include <windows.h>

namespace Platform {

NativeWindow FocusedWindow()
{
    return GetFocus();
}

void FocusWindow(NativeWindow window)
{
    SetFocus(static_cast<HWND>(window));
}

NativeWindow FrontmostWindow()
{
    return GetActiveWindow();
}

} // namespace Platform
