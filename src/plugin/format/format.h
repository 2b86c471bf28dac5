// A format that is served by one plain selector switch: the writer of a new format supplies
// DoPluginMain and has the rest of the frame from here.
#pragma once

#include "plugin/format/format_dialog.h"
#include "plugin/format/lumograph_format.h"

#include "foundation/settings/settings_record.h"

#include <memory>

namespace Project {

class PFormat : public Kesto::CLumographFormat, public Kesto::CSettingsOwner {
public:
    // The budget is left to the switch.
    bool WithRequiredMemory() override;

    // Each operation is passed on under its selector. Those that can refuse throw a CLumographError
    // for a code that is not 0; the others drop the code.
    bool DoReadPrepare() override;
    bool DoReadStart() override;
    bool DoReadContinue() override;
    void DoReadFinish() override;
    bool DoExtraReadStart() override;
    bool DoExtraReadContinue() override;
    void DoExtraReadFinish() override;
    bool DoOptionsPrepare() override;
    bool DoOptionsStart() override;
    bool DoOptionsContinue() override;
    void DoOptionsFinish() override;
    bool DoEstimatePrepare() override;
    bool DoEstimateStart() override;
    bool DoEstimateContinue() override;
    void DoEstimateFinish() override;
    bool DoWritePrepare() override;
    bool DoWriteStart() override;
    bool DoWriteContinue() override;
    void DoWriteFinish() override;
    bool DoExtraWriteStart() override;
    bool DoExtraWriteContinue() override;
    void DoExtraWriteFinish() override;
    void DoExtension20() override;
    void DoExtension23() override;
    void DoExtension21() override;
    void DoExtension22() override;
    void DoExtension34() override;
    void DoExtension26() override;

    // The selector switch. Leaves a host code in `*result`, 0 for success, and throws nothing.
    virtual void DoPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data,
                              int16_t* result) = 0;

    // Builds the dialog of the format, or null when it has none.
    virtual std::unique_ptr<Kesto::CFormatDialog> GetDialog() = 0;

    // The preferences of the format, which live as long as it does: the state of its dialog's
    // window, and what CreateSettings adds. Loaded when they are first asked for; what can't be
    // loaded is reported, and the defaults hold.
    Kesto::PluginSettings& GetPrefsBag() { return fPrefs.Get(); }

    // Runs the dialog of the format, inside a process scope, and keeps the state of its window in
    // the preferences. Whether it was accepted; without a dialog there is nothing to refuse.
    // Preferences that can't be stored are reported, and the user's answer holds.
    bool RunDialog();

private:
    Kesto::CSettingsRecord fPrefs{*this, *this};

    int16_t Forward(int16_t selector);
    bool ForwardChecked(int16_t selector);
};

} // namespace Project
