#include "plugin/view_info/host_turns.h"

#include "lumograph/window_requests.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "plugin/view_info/window_requests.h"
#include "view/messages/process_event.h"
#include "view/process/process.h"

#include <memory>
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

// Timers come again and again, and wait for nobody.
bool IsQuiet(CProcess& process)
{
    const auto pending = Platform::PeekQueue(Platform::Peek::kLeave);
    return process.TopEvent() == nullptr &&
           (!pending || pending->number == Platform::Number::kTimer);
}

} // namespace

CHostTurns::CHostTurns(Source source, CHostHands hands)
    : fSource(std::move(source)), fHands(std::move(hands))
{
    if (!fHands.deliver)
        fHands.deliver = CarryOut;
    StartIdling();
}

void CHostTurns::Idle()
{
    CProcess* const process = CProcess::Current();
    SetPeriod(0.0);
    if (process == nullptr || !IsQuiet(*process))
        return;
    HostInputEvent event{};
    if (!fSource(event))
        SetPeriod(kUsualPeriod);
    else if (event.message == kHostRequestWait)
        SetPeriod(static_cast<double>(event.first) / 1000.0);
    else if (IsInput(event)) {
        SetPeriod(fHands.seconds);
        fHands.deliver(event);
    } else
        process->PostEvent(std::make_unique<CRequestEvent>(event));
}

} // namespace Kesto
