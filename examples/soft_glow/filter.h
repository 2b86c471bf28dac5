// The filter plug-in: light parts of the picture glow into their surroundings.
#pragma once

#include "soft_glow_settings.h"

#include "dialogs/settings/settings_dialog.h"
#include "plugin/filter/filter.h"

#include <memory>

namespace SoftGlow {

class Dialog;

class Filter final : public Project::PFilter, public Project::PSettingsOwner {
public:
    void DoPluginMain(int16_t selector, HostFilterRecord* record, intptr_t* data,
                      int16_t* result) override;

    Kesto::CText GetProductName() override { return "Soft Glow"; }
    void GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName) override;
    std::unique_ptr<Project::PSettings> CreateSettings() override;
    std::unique_ptr<Project::PSettings>& CurrentSettings() override;
    Project::PSettingsDialog* CurrentDialog() override;

    // The settings in force.
    Settings& GlowSettings() { return dynamic_cast<Settings&>(*CurrentSettings()); }

    void FilterDocument() override;

private:
    std::unique_ptr<Kesto::CPluginDialog> GetDialog() override;
    int16_t AskUser();
    Settings ReadSettings();
    void FilterTile(const Settings& settings, const HostRect16& tile);

    Dialog* fDialog = nullptr; // while it is up
};

} // namespace SoftGlow
