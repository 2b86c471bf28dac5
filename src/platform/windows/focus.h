// Which native window has the keyboard, and which is in front, on the thread of the user interface.
#pragma once

#include "platform/input/message_queue.h"
#include "platform/system/native_window.h"

namespace Platform {

// The window of this thread that gets the keys, or null.
NativeWindow FocusedWindow();

// Gives a window or child control the keyboard, which activates its top window; null takes it from
// the one that has it. A window that is gone, hidden or disabled changes nothing.
void FocusWindow(NativeWindow window);

// The window of this thread that is active, or null.
NativeWindow FrontmostWindow();

// True when the keyboard is with this process. A system without a display has no others.
bool IsProcessForeground();

} // namespace Platform
