#include "foundation/settings/settings_record.h"

#include "foundation/settings/settings_file.h"
#include "foundation/settings/settings_locations.h"
#include "foundation/streams/memory_container.h"

namespace Kesto {
namespace {

constexpr std::size_t kGrowth = 4096;

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
    fSettings = std::make_unique<PluginSettings>();
    fSettings->project = fOwner.CreateSettings();
    const Platform::ModifierKeys held = fKeyboard();
    if (!(held.control && held.alt && held.shift))
        Load();
    return *fSettings;
}

void CSettingsRecord::Load()
{
    CText keyPath;
    CText fileName;
    fOwner.GetSettingsLocation(keyPath, fileName);
    CMemoryContainer file(kGrowth);
    if (fStore.ReadSettingsData(keyPath, CText(kSettingsValueName), fileName, file, false))
        SettingsFileLoad(*fSettings, file);
}

bool CSettingsRecord::Save()
{
    CText keyPath;
    CText fileName;
    fOwner.GetSettingsLocation(keyPath, fileName);
    CMemoryContainer file(kGrowth);
    SettingsFileSave(Get(), file);
    return fStore.WriteSettingsData(keyPath, CText(kSettingsValueName), fileName, file, false);
}

} // namespace Kesto
