// The named suites of the host, each acquired at its first use and kept.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>
#include <vector>

namespace Kesto {

// Belongs to a plug-in object. What a host hasn't got is asked for again the next time, since hosts
// load their suites late.
class CHostSuites {
public:
    CHostSuites() = default;
    ~CHostSuites();
    CHostSuites(const CHostSuites&) = delete;
    CHostSuites& operator=(const CHostSuites&) = delete;

    // Where suites come from. Another host than before ends what was acquired from that one; null
    // is no host and changes nothing.
    // REQUIRES: the host's table lives until the object ends or another host is set.
    void SetSource(const HostBasicSuite* basicSuite);
    bool HasSource() const { return fHost != nullptr; }

    // The table of a suite, or null when the host hasn't got it.
    const void* Find(const char* name, int32_t version) const;

    // The same for the suites that include/lumograph/ names.
    template <class Suite>
    const Suite* Find(const char* name, int32_t version) const
    {
        return static_cast<const Suite*>(Find(name, version));
    }

private:
    struct Held {
        const char* name; // a literal
        int32_t version;
        const void* table;
    };

    void Release();

    const HostSuiteTable* fHost = nullptr;
    mutable std::vector<Held> fHeld;
};

} // namespace Kesto
