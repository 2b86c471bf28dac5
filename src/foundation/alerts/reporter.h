// CReporter tells the user about a failure. Reached through CServiceT<CReporter>, on the user
// interface's thread.
//
// The frame of every user action runs its body in Reported, and then goes on as if nothing was
// thrown; that of a message handler runs it in Handled.
#pragma once

#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"

#include <concepts>

namespace Kesto {

class CReporter {
public:
    CReporter() = default;
    CReporter(const CReporter&) = delete;
    CReporter& operator=(const CReporter&) = delete;
    virtual ~CReporter() = default;

    // Says nothing, beeps, or shows an alert, as the exception asks. An error without a task is
    // shown as the task.
    virtual void Report(const CException& e);

    // Reports something thrown that is no CException.
    virtual void ReportUnknown();
};

// Runs `body` and has the reporter tell about whatever it throws. True: it threw nothing. A
// reporter that fails itself is not caught.
template <std::invocable Body>
bool Reported(Body body)
{
    try {
        body();
        return true;
    } catch (const CException& e) {
        CServiceT<CReporter>::Get()->Report(e);
    } catch (...) {
        CServiceT<CReporter>::Get()->ReportUnknown();
    }
    return false;
}

// The same for what the platform calls with a message: what is to leave all handlers passes, and
// the platform hands it on to whoever dispatched.
template <std::invocable Body>
bool Handled(Body body)
{
    try {
        body();
        return true;
    } catch (const CException& e) {
        if (e.LeavesHandlers())
            throw;
        CServiceT<CReporter>::Get()->Report(e);
    } catch (...) {
        CServiceT<CReporter>::Get()->ReportUnknown();
    }
    return false;
}

} // namespace Kesto
