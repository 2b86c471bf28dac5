// The host's numbers by key.
#pragma once

#include "plugin/suites/host_suites.h"

#include <optional>

namespace Kesto {

class CHostProperties {
public:
    explicit CHostProperties(const CHostSuites& suites)
        : fSuite(suites.Find<HostPropertySuite>(kHostPropertySuiteName, kHostPropertySuiteVersion))
    {
    }

    // The number under a key of the host's own signature, or nothing when the host doesn't know
    // it.
    std::optional<intptr_t> Read(uint32_t key) const;

private:
    const HostPropertySuite* fSuite; // null: the host tells nothing
};

} // namespace Kesto
