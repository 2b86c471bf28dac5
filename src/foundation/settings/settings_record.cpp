#include "foundation/settings/settings_record.h"

#include "foundation/alerts/reporter.h"
#include "foundation/settings/settings_file.h"
#include "foundation/settings/settings_locations.h"
#include "foundation/streams/memory_container.h"

#include <utility>

namespace Kesto {
namespace {

} // namespace

CSettingsRecord::CSettingsRecord(CSettingsOwner& owner, CSettingsStore& store,
                                 KeyboardReader keyboard)
    : fOwner(owner), fStore(store), fKeyboard(keyboard)
{
}

PluginSettings& CSettingsRecord::Get()
{
    if (fSettings != nullptr)
        return *fSettings;
    PluginSettings settings = MakeDefaults();
    const Platform::ModifierKeys held = fKeyboard();
    const bool wantsDefaults = held.control && held.alt && held.shift;
    if (!wantsDefaults && !Reported([&] { Load(settings); }))
        settings = MakeDefaults(); // a part of them may have been read
    fSettings = std::make_unique<PluginSettings>(std::move(settings));
    return *fSettings;
}

PluginSettings CSettingsRecord::MakeDefaults()
{
    PluginSettings settings;
    if (std::unique_ptr<Project::PSettings> project = fOwner.CreateSettings())
        settings.project = std::move(project);
    return settings;
}

void CSettingsRecord::Load(PluginSettings& settings)
{
    CText keyPath;
    CText fileName;
    fOwner.GetSettingsLocation(keyPath, fileName);
    CMemoryContainer file(kSettingsGrowth);
    if (!fStore.ReadSettingsData(keyPath, CText(kSettingsValueName), fileName, file, false))
        return;
    SettingsFileLoad(settings, file);
    file.Seek(0);
    fOwner.LoadPrefs(file);
}

bool CSettingsRecord::Save()
{
    CText keyPath;
    CText fileName;
    fOwner.GetSettingsLocation(keyPath, fileName);
    CMemoryContainer file(kSettingsGrowth);
    SettingsFileSave(Get(), file);
    file.Seek(file.GetSize());
    fOwner.SavePrefs(file);
    return fStore.WriteSettingsData(keyPath, CText(kSettingsValueName), fileName, file, false);
}

} // namespace Kesto
