#include "view/process/tracker.h"

#include "platform/input/message_numbers.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"

#include <utility>

namespace Kesto {
namespace {

CTracker* gActive = nullptr;

} // namespace

CTracker::~CTracker()
{
    for (CTracker** link = &gActive; *link != nullptr; link = &(*link)->fOuter)
        if (*link == this) {
            *link = fOuter;
            return;
        }
}

// An exception out of a turn also makes the tracker before it the active one again.
void CTracker::Run(CProcess& process)
{
    struct Activate {
        explicit Activate(CTracker& tracker) : tracked(tracker)
        {
            tracked.fOuter = std::exchange(gActive, &tracked);
            tracked.fState |= kState_Running;
        }
        ~Activate()
        {
            tracked.fState &= ~kState_Running;
            gActive = std::exchange(tracked.fOuter, nullptr);
        }
        CTracker& tracked;
    };
    const Activate active(*this);
    constexpr auto kWait = static_cast<std::uint32_t>(kPeriod * 1000.0);
    while (IsRunning())
        if (!process.PumpTracker(*this) && IsRunning())
            Platform::WaitForArrival(kWait);
}

void CTracker::Release(const CMouseEvent& /*event*/)
{
    Finish();
}

void CTracker::Finish()
{
    fState &= ~kState_Running;
}

Platform::Key CTracker::DeviceButton() const
{
    using Platform::Key;
    const bool swapped = Platform::AreButtonsSwapped();
    if (fButton == kMouseButton_Context)
        return swapped ? Key::kLeftButton : Key::kRightButton;
    if (fButton == kMouseButton_Tertiary)
        return Key::kMiddleButton;
    if (fButton == kMouseButton_Backward)
        return Key::kBackwardButton;
    if (fButton == kMouseButton_Forward)
        return Key::kForwardButton;
    return swapped ? Key::kRightButton : Key::kLeftButton;
}

std::uint32_t CTracker::ReleaseMessage() const
{
    using namespace Platform::Number;
    if (fButton == kMouseButton_Primary)
        return kLeftUp;
    if (fButton == kMouseButton_Context)
        return kRightUp;
    return fButton == kMouseButton_Tertiary ? kMiddleUp : 0;
}

CTracker* CTracker::Active()
{
    return gActive;
}

} // namespace Kesto
