// The dialog of the filter: what is set is seen in the preview at once, and can be undone.
#pragma once

#include "filter.h"

#include "dialogs/plugin_dialog/plugin_dialog.h"
#include "dialogs/preview/preview_pane.h"

#include <optional>

namespace SoftGlow {

class Dialog final : public Project::PDialog, public Project::PPreviewFilter {
public:
    // The filter outlives the dialog.
    Dialog(const Kesto::CWindowPlan& plan, Filter& filter);

    void CreateViews() override;
    void SetValuesFromSettings(bool send) override;
    void OnReset() override { Change({}, fOpened); }
    void OnDefault() override { Change({}, Settings()); }

    bool HandleValue(Kesto::CValueMessage& message) override;
    bool HandleCommand(Kesto::CCommandMessage& message) override;

    bool FilterPreview(const Project::PreviewPixels& source,
                       const Project::PreviewPixels& result) override;
    int32_t PreviewReach() const override;

private:
    // Puts the settings in force, as a step that can be undone.
    void Change(Kesto::CObjID control, const Settings& next);
    void ShowPreview();

    Filter& fFilter;
    Settings fOpened;                // the settings that the dialog opened with
    std::optional<Settings> fBefore; // those before a change that still goes on
};

// Makes the dialog from its layout.
std::unique_ptr<Dialog> LoadGlowDialog(Filter& filter);

} // namespace SoftGlow
