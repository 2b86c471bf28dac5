// The cursor over a window, and who gets the mouse outside of it.
#pragma once

#include "platform/graphics/cursors.h"
#include "platform/system/native_window.h"

#include <cstdint>
#include <optional>

namespace Platform {

// What the mouse looks like over this window's content, until the next call.
void SetWindowCursor(NativeWindow window, const Cursor& cursor);

// What it looks like where it is now; nothing for a cursor made of pixels, and outside of this
// program's windows.
std::optional<CursorShape> ShownCursor();

// All mouse messages go to this window until it lets go, another takes them, or the system does
// (kCaptureChanged).
void CaptureMouse(NativeWindow window);
void ReleaseMouse();
NativeWindow CapturingWindow();

// How long after a press the next one still is a double click, in milliseconds.
std::uint32_t DoubleClickTime();

} // namespace Platform
