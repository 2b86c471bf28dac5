// CMouseEvent, where the mouse is and what it and the keyboard are doing there.
#pragma once

#include "platform/input/pointer.h"
#include "view/messages/object_id.h"

#include <cstdint>

namespace Kesto {

struct CMouseEvent {
    CObjID fID;     // kMessage_MouseDown, Up or Moved
    CObjID fButton; // one of the kMouseButton_ ids; none for a move
    Platform::NativeWindow fWindow =
        nullptr; // the one at the point, or that the message is for; null for none
    Platform::PixelPoint fPoint;
    std::uint32_t fModifiers = 0; // bits as in CMessage
    double fTime = 0.0;           // seconds of the tick count

    // A move to where the cursor is at this moment.
    static CMouseEvent AtCursor();

    // What a message of the queue says. One that is not of the mouse counts as a move to its point.
    static CMouseEvent Of(const Platform::QueuedMessage& message);
};

} // namespace Kesto
