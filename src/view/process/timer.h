// CTimer, something that fires again and again while it runs, whenever its period has passed and
// the pump turns.
//
// Each timer arms one of the system's, whose messages fire it. If the system has none left, the
// pump fires the timer at the end of a turn. A period that passes several times before the pump
// gets to it counts once. All on the thread of the user interface; a timer may be stopped, started
// again or deleted while it fires.
#pragma once

#include "foundation/base/link.h"
#include "platform/input/system_timer.h"

#include <cstdint>

namespace Kesto {

class CMessenger;

class CTimer : public CLink<CTimer> {
public:
    using Callback = void (*)(void* userData, double now, double elapsed);

    // Period of a timer that nobody has set another for, in seconds.
    static constexpr double kPeriod = 1.0;

    explicit CTimer(double period = kPeriod) : fPeriod(period) {}
    CTimer(double period, Callback callback, void* userData)
        : fPeriod(period), fCallback(callback), fUserData(userData)
    {
    }
    virtual ~CTimer(); // stops it, without a call of OnStop

    // Starts counting now. With a context the system's timer belongs to its window, so the context
    // has to live until the timer stops; else it is the thread's. Without effect while it runs.
    void Start();

    // Without effect unless it runs.
    void Stop();

    bool IsRunning() const { return (fFlags & kRunning) != 0; }

    // Seconds. A timer that runs is stopped and started again.
    void SetPeriod(double period);
    double Period() const { return fPeriod; }

    void SetContext(CMessenger* context) { fContext = context; }

    virtual void OnStart() {}
    virtual void OnStop() {}

    // Calls the callback, if there is one. Seconds of the tick count, and since the last firing or
    // the start.
    virtual void Fire(double now, double elapsed);

    // Which timers RunTimers fires: those without a timer of the system's, or also those whose
    // timer belongs to the thread, since a loop of the system's own drops their messages.
    enum class Whose { kNobody, kThread };

    // Fires the timers that are due. Without effect when it is called from one that fires so.
    static void RunTimers(double now, Whose whose = Whose::kNobody);

    // A window is about to be closed, and its timers with it: they are stopped, and hear OnStop.
    static void StopTimersOf(Platform::NativeWindow window);

    // A timer message has come: fires the timer that it belongs to. False if there is none.
    static bool FireSystemTimer(const Platform::QueuedMessage& message, double now);

private:
    static constexpr std::uint32_t kRunning = 1U << 0;
    static constexpr std::uint32_t kHasSystemTimer = 1U << 1;

    void Disarm();
    void FireNow(double now);

    std::uint32_t fFlags = 0;
    double fPeriod;
    double fLast = 0.0;
    Callback fCallback = nullptr;
    void* fUserData = nullptr;
    CMessenger* fContext = nullptr; // not owned
    Platform::NativeWindow fWindow = nullptr;
    std::uintptr_t fSystemID = 0;
};

} // namespace Kesto
