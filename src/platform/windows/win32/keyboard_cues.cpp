#include "platform/windows/keyboard_cues.h"

#include "platform/windows/win32/window_record.h"

namespace Platform {

bool ShowsKeyboardCues(NativeWindow window)
{
    const LRESULT state = SendMessageW(Handle(window), WM_QUERYUISTATE, 0, 0);
    return (state & UISF_HIDEACCEL) == 0;
}

void ShowCuesOf(HWND window)
{
    if (ShowsKeyboardCues(Window(window)))
        return;
    SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS),
                 0);
    InvalidateRect(window, nullptr, FALSE);
}

} // namespace Platform
