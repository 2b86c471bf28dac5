#include "plugin/suites/host_suites.h"

#include <algorithm>
#include <string_view>

namespace Kesto {

CHostSuites::~CHostSuites()
{
    Release();
}

void CHostSuites::Release()
{
    for (const Held& suite : fHeld)
        if (fHost->ReleaseSuite != nullptr)
            fHost->ReleaseSuite(suite.name, suite.version);
    fHeld.clear();
}

void CHostSuites::SetSource(const HostBasicSuite* basicSuite)
{
    const HostSuiteTable* const host = basicSuite != nullptr ? basicSuite->suites : nullptr;
    if (host == nullptr || host == fHost)
        return;
    Release();
    fHost = host;
}

const void* CHostSuites::Find(const char* name, int32_t version) const
{
    const auto held = std::ranges::find_if(fHeld, [&](const Held& suite) {
        return suite.version == version && std::string_view(suite.name) == name;
    });
    if (held != fHeld.end())
        return held->table;
    if (fHost == nullptr || fHost->AcquireSuite == nullptr)
        return nullptr;
    fHeld.reserve(fHeld.size() + 1); // before the host counts the suite as ours
    const void* table = nullptr;
    if (fHost->AcquireSuite(name, version, &table) != kHostNoError || table == nullptr)
        return nullptr;
    fHeld.push_back({name, version, table});
    return table;
}

} // namespace Kesto
