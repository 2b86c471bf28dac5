// A format that is served by one plain selector switch: the writer of a new format supplies
// DoPluginMain and has the rest of the frame from here.
#pragma once

#include "plugin/format/lumograph_format.h"
#include "plugin/frame/plugin_dialog.h"

#include "foundation/settings/settings_record.h"

#include <memory>

namespace Project {

class PFormat : public Kesto::CLumographFormat, public Kesto::CSettingsOwner {
public:
    const char* WindowClassPrefix() const override { return "Sidecar_"; }

    // The budget is left to the switch.
    bool WithRequiredMemory() override;

    // Each operation is passed on under its selector. Those that can refuse throw a CLumographError
    // for a code that is not 0; the others drop the code.
    bool DoReadPrepare() override { return ForwardChecked(kFormatReadPrepare); }
    bool DoReadStart() override { return ForwardChecked(kFormatReadStart); }
    bool DoReadContinue() override { return ForwardChecked(kFormatReadContinue); }
    void DoReadFinish() override { Forward(kFormatReadFinish); }
    bool DoExtraReadStart() override { return ForwardChecked(kFormatExtraReadStart); }
    bool DoExtraReadContinue() override { return ForwardChecked(kFormatExtraReadContinue); }
    void DoExtraReadFinish() override { Forward(kFormatExtraReadFinish); }
    bool DoOptionsPrepare() override { return ForwardChecked(kFormatOptionsPrepare); }
    bool DoOptionsStart() override { return ForwardChecked(kFormatOptionsStart); }
    bool DoOptionsContinue() override { return ForwardChecked(kFormatOptionsContinue); }
    void DoOptionsFinish() override { Forward(kFormatOptionsFinish); }
    bool DoEstimatePrepare() override { return ForwardChecked(kFormatEstimatePrepare); }
    bool DoEstimateStart() override { return ForwardChecked(kFormatEstimateStart); }
    bool DoEstimateContinue() override { return ForwardChecked(kFormatEstimateContinue); }
    void DoEstimateFinish() override { Forward(kFormatEstimateFinish); }
    bool DoWritePrepare() override { return ForwardChecked(kFormatWritePrepare); }
    bool DoWriteStart() override { return ForwardChecked(kFormatWriteStart); }
    bool DoWriteContinue() override { return ForwardChecked(kFormatWriteContinue); }
    void DoWriteFinish() override { Forward(kFormatWriteFinish); }
    bool DoExtraWriteStart() override { return ForwardChecked(kFormatExtraWriteStart); }
    bool DoExtraWriteContinue() override { return ForwardChecked(kFormatExtraWriteContinue); }
    void DoExtraWriteFinish() override { Forward(kFormatExtraWriteFinish); }
    void DoExtension20() override { Forward(kFormatExtension20); }
    void DoExtension23() override { Forward(kFormatExtension23); }
    void DoExtension21() override { Forward(kFormatExtension21); }
    void DoExtension22() override { Forward(kFormatExtension22); }
    void DoExtension34() override { Forward(kFormatExtension34); }
    void DoExtension26() override { Forward(kFormatExtension26); }

    // The selector switch. Leaves a host code in `*result`, 0 for success, and throws nothing.
    virtual void DoPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data,
                              int16_t* result) = 0;

    // Builds the dialog of the format; null when it has none. What can't be built throws.
    virtual std::unique_ptr<Kesto::CPluginDialog> GetDialog() = 0;

    // The preferences of the format, which live as long as it does: the state of its dialog's
    // window, and what CreateSettings adds. Loaded when they are first asked for; what can't be
    // loaded is reported, and the defaults hold.
    Kesto::PluginSettings& GetPrefsBag() { return fPrefs.Get(); }

    // Runs the dialog of the format, inside a process scope, and keeps the state of its window in
    // the preferences. Whether it was accepted. Throws std::logic_error without a dialog.
    // Preferences that can't be stored are reported, and the user's answer holds.
    bool RunDialog();

private:
    Kesto::CSettingsRecord fPrefs{*this, *this};

    int16_t Forward(int16_t selector);
    bool ForwardChecked(int16_t selector);
};

} // namespace Project
