// The dialog of a format, as far as the plug-in frame knows it; the dialogs above this layer
// implement it.
#pragma once

namespace Kesto {

struct PluginSettings;

// The operations are the steps of a run, in their order. One that fails throws, and the run ends.
class CFormatDialog {
public:
    virtual ~CFormatDialog() = default;

    // Builds the dialog's views, with its window where the settings say.
    virtual void Prepare(const PluginSettings&) {}

    // Shows the window in the modal style, unless it is visible already.
    virtual void ShowModal() {}

    // Waits for the user. True: accepted, false: cancelled.
    virtual bool RunModal() = 0;

    // Leaves the state of the window in the settings, for the next run.
    virtual void StoreState(PluginSettings&) {}
};

} // namespace Kesto
