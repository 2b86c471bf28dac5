// The mouse as it is at this moment.
#pragma once

#include "platform/message_queue.h"

namespace Platform {

// In pixels of the screen.
struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

ScreenPoint CursorPosition();

// True when the user has exchanged the left and the right button. Key states tell of the buttons of the device, messages
// of their roles.
bool AreButtonsSwapped();

// The window of this thread at a point, or null.
NativeWindow WindowAt(ScreenPoint point);

} // namespace Platform
