#include "platform/windows/keyboard_cues.h"

namespace Platform {

// Desktops of Linux have no such setting.
bool ShowsKeyboardCues(NativeWindow)
{
    return true;
}

} // namespace Platform
