// The settings that the user gave for a run without a dialog, served to the module by name.
#pragma once

#include "lumograph/suites.h"

#include <string>
#include <utility>
#include <vector>

namespace Host {

const HostSettingsSuite* SettingsSuite();

// Names and texts, for as long as the object lives. The newest object serves.
class ServedSettings {
public:
    using Pairs = std::vector<std::pair<std::string, std::string>>;

    explicit ServedSettings(Pairs settings);
    ~ServedSettings();
    ServedSettings(const ServedSettings&) = delete;
    ServedSettings& operator=(const ServedSettings&) = delete;

    // Throws Failure for a setting whose text the module refused, with what it wanted.
    void RequireAccepted() const;

    // Throws Failure for a setting that the module never asked for, naming those that it did.
    void RequireKnown() const;

    // "name=value", as on the command line. Throws Failure for a text without a name, and for a
    // name that is there twice.
    static Pairs Parse(const std::vector<std::string>& texts);

private:
    friend struct SettingsCalls;

    Pairs fSettings;
    ServedSettings* fOuter;
    std::vector<std::string> fAsked; // each name once
    std::string fRefused;            // empty: none
    std::string fWanted;
};

} // namespace Host
