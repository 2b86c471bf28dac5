// Where input goes, and where a maximized window lies.
#pragma once

#include "platform/windows/linux/window.h"

namespace Platform {

// Finds the window of input that has none: the mouse goes to its captor or to the window at its
// point, keys to the window that has the keyboard. The point becomes the window's own.
void RouteInput(QueuedMessage& message);

// The work area of the monitor that shows most of it, without the frame.
PixelRect MaximizedContent(LinuxWindow& window);

} // namespace Platform
