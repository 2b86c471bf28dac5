// Where windows lie. Rectangles are in pixels of the screen unless it says otherwise.
#pragma once

#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

namespace Platform {

// The whole window, and what its frame leaves for the content.
PixelRect FrameOf(NativeWindow window);
PixelRect ContentOf(NativeWindow window);

// How wide the frame is on each side; for a maximized or minimized window that of the usual state.
struct FrameInsets {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend bool operator==(const FrameInsets&, const FrameInsets&) = default;
};
FrameInsets InsetsOf(NativeWindow window);

// Moves and sizes it, within the limits that its procedure gives. Sends kMove and kSize for what
// has changed.
void PlaceContent(NativeWindow window, const PixelRect& content);

// The content's rectangle when it is neither maximized nor minimized.
PixelRect NormalContentOf(NativeWindow window);

// Device pixels for each unit where the window lies; that of the primary monitor for no window.
double ScaleOf(NativeWindow window);

} // namespace Platform
