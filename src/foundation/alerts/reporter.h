// CReporter tells the user about a failure. Reached through CServiceT<CReporter>, on the user
// interface's thread.
//
// The frame of every message handler and user action runs its body in Reported, and then goes on as
// if nothing was thrown.
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

} // namespace Kesto
