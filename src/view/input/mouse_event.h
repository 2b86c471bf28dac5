// CMouseEvent, where the mouse is and what it and the keyboard are doing there.
#pragma once

#include "foundation/base/geometry.h"
#include "platform/input/pointer.h"
#include "view/messages/object_id.h"

#include <cstdint>

namespace Kesto {

struct CMouseEvent {
    CObjID fID;     // kMessage_MouseDown, Up or Moved
    CObjID fButton; // one of the kMouseButton_ ids; none for a move
    Platform::NativeWindow fWindow =
        nullptr;                  // the one at the point, or that the message is for; null for none
    Platform::PixelPoint fPoint;  // on the screen
    Point fPortPoint;             // in the window's port, in units; the window fills it in
    Point fWheel;                 // notches to the right and away from the user; 0, 0 for no turn
    float fPressure = -2.0F;      // of a pen, in [-1, 1]; below that when none has reported
    std::uint32_t fModifiers = 0; // bits as in CMessage
    double fTime = 0.0;           // seconds of the tick count

    bool IsWheel() const { return fWheel != Point{}; }

    // A move to where the cursor is at this moment.
    static CMouseEvent AtCursor();

    // What a message of the queue says. One that is not of the mouse counts as a move to its point.
    static CMouseEvent Of(const Platform::QueuedMessage& message);
};

} // namespace Kesto
