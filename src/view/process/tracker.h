// CTracker, what takes over the mouse between the press of a button and its release.
//
// A tracker outlives its run: what is to end it from within its own turn calls Finish.
#pragma once

#include "platform/input/keyboard.h"
#include "view/input/mouse_event.h"

#include <cstdint>

namespace Kesto {

class CProcess;

class CTracker {
public:
    // Bits of the options and of the state.
    static constexpr std::uint32_t kOption_Idle = 1U << 10; // wants a turn when nothing happens
    static constexpr std::uint32_t kState_Running = 1U << 0;
    static constexpr std::uint32_t kState_CapturesMessages =
        1U << 2; // sees all messages before their windows do

    // Seconds between two turns of a tracker while nothing happens.
    static constexpr double kPeriod = 0.03;

    // `button` is the one whose release ends it.
    explicit CTracker(CObjID button, std::uint32_t options = 0) : fButton(button), fOptions(options)
    {
    }
    CTracker(const CTracker&) = delete;
    CTracker& operator=(const CTracker&) = delete;
    virtual ~CTracker();

    // Pumps until it has finished. Trackers nest; the innermost is the active one.
    void Run(CProcess& process);

    // The mouse is there now, often where it was before. True: the event has been dealt with.
    virtual bool Track(const CMouseEvent& event) = 0;

    // The button was released: ends with Finish.
    virtual void Release(const CMouseEvent& event);
    // It is over: by a release, or because the tracking is broken off.
    virtual void Finish();

    // A turn without anything new; seconds of the tick count.
    virtual void Idle(double) {}

    // Sees a message on its way to a window, with kState_CapturesMessages. True: it goes no
    // further.
    virtual bool PreTranslate(const Platform::QueuedMessage&) { return false; }

    CObjID Button() const { return fButton; }
    std::uint32_t Options() const { return fOptions; }
    std::uint32_t State() const { return fState; }
    bool IsRunning() const { return (fState & kState_Running) != 0; }

    // The button's number at the device, which counts left and right as the user has them, and the
    // number of the message that tells of its release; 0 if there is none of its own.
    Platform::Key DeviceButton() const;
    std::uint32_t ReleaseMessage() const;

    // The tracker that has the mouse, or null.
    static CTracker* Active();

protected:
    std::uint32_t fState = 0;

private:
    CObjID fButton;
    std::uint32_t fOptions;
    CTracker* fOuter = nullptr; // while it runs: the one that was active before
};

} // namespace Kesto
