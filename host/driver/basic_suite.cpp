#include "driver/basic_suite.h"

#include "lumograph/results.h"

#include <array>
#include <string_view>

namespace Host {
namespace {

int gAcquired = 0;

struct Property {
    uint32_t key;
    intptr_t value;
};

// A host without windows of its own: medium dark, ordinary contrast and tabs, no scaling.
constexpr std::array kProperties = {
    Property{kPropertyUiBrightness, 1}, Property{kPropertyHighContrast, 0},
    Property{kPropertyLargeTabs, 0},    Property{kPropertyUiScale, 100},
    Property{kPropertyHighDpi, 1},
};

int32_t GetProperty(uint32_t signature, uint32_t key, int32_t index, intptr_t* value, void** handle)
{
    if (signature != kLumographSignature || index != 0)
        return kHostBadParameter;
    for (const Property& property : kProperties) {
        if (property.key != key)
            continue;
        if (value)
            *value = property.value;
        if (handle)
            *handle = nullptr;
        return kHostNoError;
    }
    return kHostBadParameter;
}

constexpr HostPropertySuite kPropertySuite = {GetProperty};

bool IsPropertySuite(const char* name, int32_t version)
{
    return name && std::string_view(name) == kHostPropertySuiteName &&
           version == kHostPropertySuiteVersion;
}

int32_t AcquireSuite(const char* name, int32_t version, const void** suite)
{
    if (!suite || !IsPropertySuite(name, version))
        return kHostMissingSuite;
    *suite = &kPropertySuite;
    ++gAcquired;
    return kHostNoError;
}

int32_t ReleaseSuite(const char* name, int32_t version)
{
    if (!IsPropertySuite(name, version) || gAcquired == 0)
        return kHostMissingSuite;
    --gAcquired;
    return kHostNoError;
}

constexpr HostSuiteTable kSuites = {AcquireSuite, ReleaseSuite};
constexpr HostBasicSuite kBasicSuite = {nullptr, &kSuites};

} // namespace

const HostBasicSuite* BasicSuite()
{
    return &kBasicSuite;
}

int AcquiredSuites()
{
    return gAcquired;
}

} // namespace Host
