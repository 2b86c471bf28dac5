// The cursor over a window, and who gets the mouse outside of it.
#pragma once

#include "platform/graphics/cursors.h"
#include "platform/system/native_window.h"

#include <cstdint>

namespace Platform {

// What the mouse looks like over this window's content, until the next call.
void SetWindowCursor(NativeWindow window, const Cursor& cursor);

// All mouse messages go to this window until it lets go, another takes them, or the system does
// (kCaptureChanged).
void CaptureMouse(NativeWindow window);
void ReleaseMouse();
NativeWindow CapturingWindow();

// How long after a press the next one still is a double click, in milliseconds.
std::uint32_t DoubleClickTime();

} // namespace Platform
