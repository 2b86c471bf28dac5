// The settings that the user of a host wants for a run without a dialog.
#pragma once

#include "plugin/suites/host_suites.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace Kesto {

// Each Read puts the host's setting of that name into `value`, or leaves it alone when the host has
// none. A text that isn't what is wanted is refused with words for the user, and throws
// CLumographError with kHostBadParameter.
class CHostSettings {
public:
    explicit CHostSettings(const CHostSuites& suites)
        : fSuite(suites.Find<HostSettingsSuite>(kHostSettingsSuiteName, kHostSettingsSuiteVersion))
    {
    }

    // A number from `least` to `most`.
    void Read(const char* name, double& value, double least, double most) const;
    void Read(const char* name, int32_t& value, int32_t least, int32_t most) const;

    // One of the words, as its index.
    void Read(const char* name, int32_t& choice, std::span<const std::string_view> words) const;

private:
    const char* Find(const char* name) const; // null: the host has none

    const HostSettingsSuite* fSuite; // null: the host has no settings
};

} // namespace Kesto
