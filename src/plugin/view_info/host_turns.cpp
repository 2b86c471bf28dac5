#include "plugin/view_info/host_turns.h"

#include "lumograph/window_requests.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "platform/system/machine.h"
#include "plugin/view_info/window_requests.h"
#include "view/messages/process_event.h"
#include "view/process/process.h"
#include "view/process/tracker.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

namespace Kesto {
namespace {

constexpr double kUsualPeriod = 0.05; // seconds

// A request waits for its turn like all that is posted, so that views may pump in it.
class CRequestEvent : public CProcessEvent {
public:
    explicit CRequestEvent(const HostInputEvent& event) : CProcessEvent(0), fEvent(event) {}
    void Dispatch() override { CarryOut(fEvent); }

private:
    HostInputEvent fEvent;
};

bool IsPending(std::uint32_t first, std::uint32_t last)
{
    return Platform::PeekQueue(Platform::Peek::kLeave, {first, last}).has_value();
}

// Timers come again and again, and wait for nobody. While a tracker runs, what is no input and no
// paint waits for its end.
bool IsQuiet(CProcess& process)
{
    using namespace Platform::Number;
    if (process.TopEvent() != nullptr)
        return false;
    if (CTracker::Active() != nullptr)
        return !IsPending(kMouseFirst, kMouseLast) && !IsPending(kKeyFirst, kKeyLast) &&
               !IsPending(kPaint, kPaint);
    const auto pending = Platform::PeekQueue(Platform::Peek::kLeave);
    return !pending || pending->number == kTimer;
}

// The event that lets go of what another one presses; nothing for all else.
std::optional<HostInputEvent> ReleaseOf(const HostInputEvent& event)
{
    using namespace Platform::Number;
    switch (event.message) {
    case kKeyDown:
    case kSysKeyDown:
    case kLeftDown:
    case kRightDown:
    case kMiddleDown: {
        HostInputEvent release = event;
        ++release.message;
        return release;
    }
    default:
        return std::nullopt;
    }
}

// Buttons have messages of their own, keys are numbers.
bool LetsGoOfTheSame(const HostInputEvent& one, const HostInputEvent& other)
{
    const bool isKey = one.message <= Platform::Number::kKeyLast;
    return one.message == other.message && (!isKey || one.first == other.first);
}

} // namespace

CHostTurns::CHostTurns(Source source, CHostHands hands)
    : fSource(std::move(source)), fHands(std::move(hands))
{
    if (!fHands.deliver)
        fHands.deliver = CarryOut;
    StartIdling();
}

CHostTurns::~CHostTurns()
{
    while (!fHeld.empty())
        try {
            Deliver(HostInputEvent(fHeld.back()));
        } catch (const std::exception&) {
            return; // nothing can be delivered any more
        }
}

// A press that fails is let go of too.
void CHostTurns::Deliver(const HostInputEvent& event)
{
    std::erase_if(fHeld,
                  [&event](const HostInputEvent& held) { return LetsGoOfTheSame(held, event); });
    if (const auto release = ReleaseOf(event))
        fHeld.push_back(*release);
    fHands.deliver(event);
}

void CHostTurns::Idle()
{
    CProcess* const process = CProcess::Current();
    SetPeriod(0.0);
    if (process == nullptr || fIsTaken || !IsQuiet(*process))
        return;
    HostInputEvent event{};
    fIsTaken = true;
    const bool hasEvent = fSource(event);
    fIsTaken = false;
    if (!hasEvent)
        SetPeriod(kUsualPeriod);
    else if (event.message == kHostRequestWait)
        SetPeriod(static_cast<double>(event.first) / 1000.0);
    else if (IsInput(event)) {
        // The hands' own time isn't that of what they do.
        const std::uint32_t start = Platform::TickCount();
        Deliver(event);
        SetPeriod(fHands.seconds + (Platform::TickCount() - start) / 1000.0);
    } else
        process->PostEvent(std::make_unique<CRequestEvent>(event));
}

} // namespace Kesto
