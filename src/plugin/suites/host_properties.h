// A named suite for one scope, and the host's properties that come through one.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>
#include <optional>

namespace Kesto {

// Acquires a suite by name and version and releases it at the end of the scope.
class CHostSuite {
public:
    CHostSuite(const HostBasicSuite* basicSuite, const char* name, int32_t version);
    ~CHostSuite();
    CHostSuite(const CHostSuite&) = delete;
    CHostSuite& operator=(const CHostSuite&) = delete;

    // The suite's table, or null when the host hasn't got it.
    const void* Table() const { return fTable; }

private:
    const HostSuiteTable* fSuites = nullptr;
    const char* fName;
    int32_t fVersion;
    const void* fTable = nullptr;
};

// The host's numbers by key.
class CHostProperties {
public:
    explicit CHostProperties(const HostBasicSuite* basicSuite);

    bool IsAvailable() const { return fSuite.Table() != nullptr; }

    // The number behind a key of the host's own signature, or nothing when the host doesn't know
    // it.
    std::optional<intptr_t> Read(uint32_t key) const;

private:
    CHostSuite fSuite;
};

} // namespace Kesto
