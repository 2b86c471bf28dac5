// The exception frame around the work of a selector: what a failure inside becomes for the host and
// for the user.
#pragma once

#include "foundation/alerts/reporter.h"
#include "plugin/frame/lumograph_error.h"

#include "lumograph/results.h"

#include <concepts>
#include <exception>

namespace Kesto {

// Runs `body` and returns the result word that it returns. A CLumographError becomes its code,
// silently: the host shows its own text. Every other failure is shown by the reporter and
// becomes 1. A reporter that fails itself is not caught.
template <std::invocable Body>
int16_t RunInFrame(Body body)
{
    try {
        try {
            try {
                return body();
            } catch (const CLumographError& error) {
                return error.Code();
            }
        } catch (const CException&) {
            throw;
        } catch (const std::exception& failure) {
            throw CError(CText(failure.what()));
        } catch (...) {
            throw CException();
        }
    } catch (const CException& failure) {
        CServiceT<CReporter>::Get()->Report(failure);
    } catch (...) {
        CServiceT<CReporter>::Get()->ReportUnknown();
    }
    return kHostFailed;
}

} // namespace Kesto
