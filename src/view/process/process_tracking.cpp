// The pump's turn while a tracker has the mouse.
#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/input/mouse_history.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/process/tracker.h"

namespace Kesto {
namespace {

using namespace Platform::Number;
using Platform::MessageRange;
using Platform::Peek;
using Platform::PeekQueue;
using Platform::QueuedMessage;

constexpr MessageRange kMouse{kMouseFirst, kMouseLast};
constexpr MessageRange kKeys{kKeyFirst, kKeyLast};
constexpr MessageRange kPaints{kPaint, kPaint};
constexpr MessageRange kTimers{kTimer, kTimer};

// The clock starts over every few weeks.
bool IsEarlier(const QueuedMessage& a, const QueuedMessage& b)
{
    return static_cast<std::int32_t>(a.time - b.time) < 0;
}

// The earlier one of a mouse and a key message, or else a paint, or else a timer.
std::optional<QueuedMessage> TakeNext(const std::optional<QueuedMessage>& mouse)
{
    const std::optional<QueuedMessage> key = PeekQueue(Peek::kLeave, kKeys);
    if (key && (!mouse || IsEarlier(*key, *mouse)))
        return PeekQueue(Peek::kRemove, kKeys);
    if (mouse)
        return PeekQueue(Peek::kRemove, kMouse);
    if (const std::optional<QueuedMessage> paint = PeekQueue(Peek::kRemove, kPaints))
        return paint;
    return PeekQueue(Peek::kRemove, kTimers);
}

bool IsOfMouse(const QueuedMessage& message)
{
    return message.number >= kMouseFirst && message.number <= kMouseLast;
}

// Whether the tracker took what it was shown.
bool ShowTheMouse(CTracker& tracker, const std::optional<QueuedMessage>& message)
{
    CMouseHistory& history = CMouseHistory::Get();
    if (!history.IsOn())
        return tracker.Track(CMouseEvent::AtCursor());
    if (message && IsOfMouse(*message))
        history.Record(CMouseEvent::Of(*message));
    while (const std::optional<CMouseEvent> event = history.Take())
        if (tracker.Track(*event))
            return true;
    return false;
}

} // namespace

// The release stays in the queue: it is for the window, which saw the press.
bool CProcess::PumpTracker(CTracker& tracker)
{
    const bool isHeld = Platform::IsKeyDown(tracker.DeviceButton(), Platform::KeyMoment::kNow);
    const std::optional<QueuedMessage> mouse =
        isHeld ? PeekQueue(Peek::kLeave, kMouse) : std::nullopt;
    if (!isHeld || (mouse && mouse->number == tracker.ReleaseMessage())) {
        CMouseEvent event = mouse ? CMouseEvent::Of(*mouse) : CMouseEvent::AtCursor();
        event.fID = kMessage_MouseUp;
        event.fButton = tracker.Button();
        tracker.Release(event);
        return true;
    }
    const std::optional<QueuedMessage> message = TakeNext(mouse);
    const bool taken = ShowTheMouse(tracker, message);
    if (message && TranslateAndDispatch(*message))
        return true;
    if (!taken && (tracker.Options() & CTracker::kOption_Idle) != 0 && tracker.IsRunning())
        tracker.Idle(Platform::TickCount() / 1000.0);
    DispatchTopEvent();
    RunIdle(0);
    return false;
}

} // namespace Kesto
