#include "driver/basic_suite.h"

#include "driver/host_memory.h"
#include "lumograph/results.h"
#include "suites/descriptors.h"
#include "suites/settings.h"
#include "suites/string_ids.h"
#include "suites/ui_hooks.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Host {
namespace {

struct Property {
    uint32_t key;
    intptr_t value;
};

// A host without windows of its own: medium dark, ordinary contrast and tabs, no scaling.
std::array gProperties = {
    Property{kPropertyUiBrightness, 1}, Property{kPropertyHighContrast, 0},
    Property{kPropertyLargeTabs, 0},    Property{kPropertyUiScale, 100},
    Property{kPropertyHighDpi, 1},      Property{kPropertySettingsOff, 0},
};

Property* FindProperty(uint32_t key)
{
    const auto found = std::ranges::find(gProperties, key, &Property::key);
    return found != gProperties.end() ? &*found : nullptr;
}

int32_t GetProperty(uint32_t signature, uint32_t key, int32_t index, intptr_t* value, void** handle)
{
    const Property* const property = FindProperty(key);
    if (signature != kLumographSignature || index != 0 || property == nullptr)
        return kHostBadParameter;
    if (value)
        *value = property->value;
    if (handle)
        *handle = nullptr;
    return kHostNoError;
}

constexpr HostPropertySuite kPropertySuite = {GetProperty};

constexpr HostBareSuite kBareSuite = {kHostBareTableVersion, 0, {}};

struct Suite {
    std::string_view name;
    int32_t version;
    const void* table;
    int acquired = 0;
};

// What a module can ask for by name.
std::array gSuites = {
    Suite{kHostPropertySuiteName, kHostPropertySuiteVersion, &kPropertySuite},
    Suite{kHostBufferSuiteName, kHostBufferSuiteNameVersion, BufferSuite()},
    Suite{kHostSettingsSuiteName, kHostSettingsSuiteVersion, SettingsSuite()},
    Suite{kHostUIHooksSuiteName, kHostUIHooksSuiteVersion4, UIHooksSuite()},
    Suite{kHostDescriptorSuiteName, kHostDescriptorSuiteVersion, DescriptorSuite()},
    Suite{kHostListSuiteName, kHostListSuiteVersion, ListSuite()},
    Suite{kHostStringIdSuiteName, kHostStringIdSuiteVersion, StringIdSuite()},
    Suite{kHostHelpSuiteName, kHostHelpSuiteVersion1, &kBareSuite},
    Suite{kHostHelpSuiteName, kHostHelpSuiteVersion2, &kBareSuite},
    Suite{kHostUtilitiesSuiteName, kHostUtilitiesSuiteVersion, &kBareSuite},
    Suite{kHostPaletteSuiteName, kHostPaletteSuiteVersion, &kBareSuite},
};

// Null for a suite that isn't there.
Suite* FindSuite(const char* name, int32_t version)
{
    const auto found = std::ranges::find_if(gSuites, [&](const Suite& suite) {
        return name && suite.name == name && suite.version == version;
    });
    return found != gSuites.end() ? &*found : nullptr;
}

int32_t AcquireSuite(const char* name, int32_t version, const void** table)
{
    Suite* const suite = FindSuite(name, version);
    if (!table || !suite)
        return kHostMissingSuite;
    *table = suite->table;
    ++suite->acquired;
    return kHostNoError;
}

int32_t ReleaseSuite(const char* name, int32_t version)
{
    Suite* const suite = FindSuite(name, version);
    if (!suite || suite->acquired == 0)
        return kHostMissingSuite;
    --suite->acquired;
    return kHostNoError;
}

constexpr HostSuiteTable kSuites = {AcquireSuite, ReleaseSuite};
constexpr HostBasicSuite kBasicSuite = {nullptr, &kSuites};

} // namespace

const HostBasicSuite* BasicSuite()
{
    return &kBasicSuite;
}

bool SetHostProperty(uint32_t key, intptr_t value)
{
    Property* const property = FindProperty(key);
    if (property != nullptr)
        property->value = value;
    return property != nullptr;
}

int AcquiredSuites()
{
    int all = 0;
    for (const Suite& suite : gSuites)
        all += suite.acquired;
    return all;
}

} // namespace Host
