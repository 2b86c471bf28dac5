// Which native window has the keyboard, and which is in front, on the thread of the user interface.
//
// A system without native windows keeps the one that was set last, and calls it the active one as
// well.
#pragma once

#include "platform/input/message_queue.h"
#include "platform/system/native_window.h"

namespace Platform {

// The window of this thread that gets the keys, or null.
NativeWindow FocusedWindow();

// Gives a window the keyboard; null takes it from the one that has it. A window that is gone
// changes nothing.
void FocusWindow(NativeWindow window);

// The window of this thread that is active, or null.
NativeWindow FrontmostWindow();

// True when a window of this process is in front of those of all others. A system without a screen
// has no others.
bool IsProcessForeground();

} // namespace Platform
