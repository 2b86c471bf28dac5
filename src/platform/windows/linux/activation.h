// Which window is active, which has the keyboard, which the mouse; and the messages that tell of a
// change. The calls throw nothing; what handlers threw is stopped.
#pragma once

#include "platform/windows/linux/window.h"

namespace Platform {

// Makes a top window the active one, or none. Popups, tool bars and palettes may be activated by
// the program alone.
void MakeActive(LinuxWindow* window, bool byClick);

// Gives the keyboard to a window or child control, whose top window becomes active; or to none.
void MakeFocused(NativeWindow window);

// A window is hidden, minimized or gone: another becomes active if it was, and the keyboard and the
// mouse leave it.
void LeaveWindow(LinuxWindow& window);

// The mouse's captor, or null.
LinuxWindow* Captor();
void SetCaptor(LinuxWindow* window);

LinuxWindow* ActiveLinuxWindow();

// The topmost enabled window that a disabled one owns, directly or not: its modal child. Null for
// none.
LinuxWindow* ModalChildOf(LinuxWindow& window);

} // namespace Platform
