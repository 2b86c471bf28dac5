// CSettingsRecord, the settings that one plug-in holds while it lives.
#pragma once

#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/settings_store.h"
#include "platform/input/keyboard.h"

#include <memory>

namespace Kesto {

// What a plug-in tells about its settings.
class CSettingsOwner {
public:
    // The key path in the registry and the name of the file, as keys to be localised.
    virtual void GetSettingsLocation(CText& keyPath, CText& fileName) = 0;

    // What was loaded, and what is about to be stored: for a plug-in that reads more from its file
    // than the record, or writes more after it. The container is at its start, and at its end.
    virtual void LoadPrefs(CContainer&) {}
    virtual void SavePrefs(CContainer&) {}

    // The project's part of a new record, with its defaults; for null the record takes the base,
    // which has none.
    virtual std::unique_ptr<Project::PSettings> CreateSettings()
    {
        return std::make_unique<Project::PSettings>();
    }

protected:
    ~CSettingsOwner() = default;
};

class CSettingsRecord {
public:
    using KeyboardReader = Platform::ModifierKeys (*)();

    // Owner and store outlive the record.
    CSettingsRecord(CSettingsOwner& owner, CSettingsStore& store,
                    KeyboardReader keyboard = Platform::HeldModifierKeys);

    // The settings. The first call makes them with their defaults and loads what is stored, unless
    // the user holds Control, Alt and Shift down. What can't be loaded is reported to the user, and
    // the defaults hold. When the defaults themselves can't be made, the call throws, and the next
    // one begins anew.
    PluginSettings& Get();

    // Stores the settings; false if there was nothing to store. Throws CSystemError, with the
    // former ones still stored.
    bool Save();

private:
    PluginSettings MakeDefaults();
    void Load(PluginSettings& settings);

    CSettingsOwner& fOwner;
    CSettingsStore& fStore;
    KeyboardReader fKeyboard;
    std::unique_ptr<PluginSettings> fSettings;
};

} // namespace Kesto
