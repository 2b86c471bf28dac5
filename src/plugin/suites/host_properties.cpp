#include "plugin/suites/host_properties.h"

namespace Kesto {

CHostSuite::CHostSuite(const HostBasicSuite* basicSuite, const char* name, int32_t version)
    : fName(name), fVersion(version)
{
    if (basicSuite == nullptr || basicSuite->suites == nullptr ||
        basicSuite->suites->AcquireSuite == nullptr)
        return;
    fSuites = basicSuite->suites;
    if (fSuites->AcquireSuite(fName, fVersion, &fTable) != kHostNoError)
        fTable = nullptr;
}

CHostSuite::~CHostSuite()
{
    if (fTable != nullptr && fSuites->ReleaseSuite != nullptr)
        fSuites->ReleaseSuite(fName, fVersion);
}

CHostProperties::CHostProperties(const HostBasicSuite* basicSuite)
    : fSuite(basicSuite, kHostPropertySuiteName, kHostPropertySuiteVersion)
{
}

std::optional<intptr_t> CHostProperties::Read(uint32_t key) const
{
    const auto* const table = static_cast<const HostPropertySuite*>(fSuite.Table());
    if (table == nullptr || table->GetProperty == nullptr)
        return std::nullopt;
    constexpr int32_t kIndex = 0;
    intptr_t value = 0;
    void* handle = nullptr;
    if (table->GetProperty(kLumographSignature, key, kIndex, &value, &handle) != kHostNoError)
        return std::nullopt;
    return value;
}

} // namespace Kesto
