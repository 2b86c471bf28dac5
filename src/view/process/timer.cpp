#include "view/process/timer.h"

#include "platform/system/machine.h"
#include "view/messages/messenger.h"
#include "view/process/walked_list.h"

#include <utility>

namespace Kesto {
namespace {

CWalkedList<CTimer> gTimers; // those that run, in the order of their starts

std::uint32_t Milliseconds(double seconds)
{
    constexpr double kMost = 0x7FFFFFFF;
    const double wanted = seconds * 1000.0;
    return wanted >= kMost ? static_cast<std::uint32_t>(kMost)
           : wanted > 0.0  ? static_cast<std::uint32_t>(wanted)
                           : 0;
}

} // namespace

CTimer::~CTimer()
{
    if (IsRunning())
        Disarm();
}

// A window's timer takes the object's address for its number, which no other timer of the window
// has.
void CTimer::Start()
{
    if (IsRunning())
        return;
    fWindow = fContext != nullptr ? fContext->GetSystemWindow() : nullptr;
    fSystemID =
        Platform::ArmTimer(fWindow, reinterpret_cast<std::uintptr_t>(this), Milliseconds(fPeriod));
    fFlags = kRunning | (fSystemID != 0 ? kHasSystemTimer : 0);
    fLast = Platform::TickCount() / 1000.0;
    gTimers.Add(*this);
    OnStart();
}

void CTimer::Stop()
{
    if (!IsRunning())
        return;
    Disarm();
    OnStop();
}

void CTimer::Disarm()
{
    if ((fFlags & kHasSystemTimer) != 0)
        Platform::DisarmTimer(fWindow, fSystemID);
    fFlags = 0;
    gTimers.Remove(*this);
}

void CTimer::SetPeriod(double period)
{
    fPeriod = period;
    if (!IsRunning())
        return;
    Stop();
    Start();
}

void CTimer::Fire(double now, double elapsed)
{
    if (fCallback != nullptr)
        fCallback(fUserData, now, elapsed);
}

void CTimer::FireNow(double now)
{
    Fire(now, now - std::exchange(fLast, now));
}

// A clock that has started over counts as a period passed.
void CTimer::RunTimers(double now, Whose whose)
{
    if (gTimers.IsWalked())
        return;
    gTimers.ForEach([now, whose](CTimer& timer) {
        const double elapsed = now - timer.fLast;
        const bool isOurs = (timer.fFlags & kHasSystemTimer) == 0 ||
                            (whose == Whose::kThread && timer.fWindow == nullptr);
        if (isOurs && (elapsed >= timer.fPeriod || elapsed < 0.0))
            timer.FireNow(now);
    });
}

void CTimer::StopTimersOf(Platform::NativeWindow window)
{
    gTimers.ForEach([window](CTimer& timer) {
        if (window != nullptr && timer.fWindow == window)
            timer.Stop();
    });
}

bool CTimer::FireSystemTimer(const Platform::QueuedMessage& message, double now)
{
    for (CTimer* timer = gTimers.Head(); timer != nullptr; timer = timer->fNext)
        if ((timer->fFlags & kHasSystemTimer) != 0 && timer->fSystemID == message.first &&
            timer->fWindow == message.window) {
            timer->FireNow(now);
            return true;
        }
    return false;
}

} // namespace Kesto
