#include "view/input/mouse_event.h"

#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/messages/message.h"
#include "view/messages/message_ids.h"

#include <array>

namespace Kesto {
namespace {

using namespace Platform::Number;

bool IsOfMouse(std::uint32_t number)
{
    return (number >= kMouseFirst && number <= kMouseLast) ||
           (number >= kFrameMouseFirst && number <= kFrameMouseLast);
}

CObjID ButtonOf(const Platform::QueuedMessage& message)
{
    const std::array buttons = {kMouseButton_Primary, kMouseButton_Context, kMouseButton_Tertiary};
    if (message.number >= kExtraDown)
        return (message.first >> 16) == 1 ? kMouseButton_Backward : kMouseButton_Forward;
    return buttons[(message.number - kLeftDown) / 3];
}

} // namespace

CMouseEvent CMouseEvent::AtCursor()
{
    CMouseEvent event;
    event.fID = kMessage_MouseMoved;
    event.fPoint = Platform::CursorPosition();
    event.fWindow = Platform::WindowAt(event.fPoint);
    event.fModifiers = ReadModifiers(KeyMoment::kLastMessage);
    event.fTime = Platform::TickCount() / 1000.0;
    return event;
}

// Only messages of the mouse name the window under it; others name the one that they are for.
CMouseEvent CMouseEvent::Of(const Platform::QueuedMessage& message)
{
    CMouseEvent event;
    event.fID = kMessage_MouseMoved;
    event.fPoint = {message.x, message.y};
    event.fWindow = IsOfMouse(message.number) ? message.window : Platform::WindowAt(event.fPoint);
    event.fModifiers = ReadModifiers(KeyMoment::kLastMessage);
    event.fTime = message.time / 1000.0;
    // A notch is 120 in the upper half of the word.
    const auto notches = static_cast<std::int16_t>(message.first >> 16) / 120.0;
    if (message.number == kWheel)
        event.fWheel.y = notches;
    if (message.number == kSidewaysWheel)
        event.fWheel.x = notches;
    const bool isButton =
        message.number >= kLeftDown && message.number <= kExtraDouble && message.number != kWheel;
    if (isButton) {
        event.fButton = ButtonOf(message);
        const std::uint32_t step =
            message.number - (message.number >= kExtraDown ? kExtraDown : kLeftDown);
        event.fID = step % 3 == 1 ? kMessage_MouseUp : kMessage_MouseDown;
    }
    return event;
}

} // namespace Kesto
