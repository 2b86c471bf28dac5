// Whether windows underline the letters that are keys. Some systems wait with that until the user
// works with the keyboard; the window is then painted anew.
#pragma once

#include "platform/system/native_window.h"

namespace Platform {

// A window that is gone shows them.
bool ShowsKeyboardCues(NativeWindow window);

} // namespace Platform
