// The mouse as it is at this moment; and pens, where the system knows of them. The functions for
// pens are looked up by name; without them there is no pen.
#pragma once

#include "platform/input/message_queue.h"
#include "platform/system/pixel_rect.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Platform {

// In pixels of the screen.
PixelPoint CursorPosition();

// Whether a message comes when the mouse leaves this thread's windows; else that is found out by
// asking.
bool TellsWhenMouseLeaves();

// True when the user has exchanged the left and the right button. Key states tell of the buttons of
// the device, messages of their roles.
bool AreButtonsSwapped();

// The window of this thread at a point, or null.
NativeWindow WindowAt(PixelPoint point);

struct PenSample {
    std::int32_t x = 0; // in pixels of the screen
    std::int32_t y = 0;
    std::uint32_t time = 0;     // as TickCount
    std::uint32_t pressure = 0; // 0 to 1024; 0 also from a pen that doesn't measure it
};

// The pen's last sample; nothing if the pointer of this number is no pen.
std::optional<PenSample> ReadPen(std::uint32_t pointer);

// The samples that the pen's last message announced, oldest first.
std::vector<PenSample> ReadPenHistory(std::uint32_t pointer);

} // namespace Platform
