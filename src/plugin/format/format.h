// A format that is served by one plain selector switch: the writer of a new format supplies
// DoPluginMain and has the rest of the frame from here.
#pragma once

#include "plugin/format/format_dialog.h"
#include "plugin/format/lumograph_format.h"

#include "foundation/base/text.h"

#include <cstddef>
#include <memory>
#include <span>

namespace Project {

class PFormat : public Kesto::CLumographFormat {
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

    // Where the preferences of the format are kept, as localisable texts.
    virtual void GetPrefsNames(Kesto::CText& registryPath, Kesto::CText& fileName) = 0;

    // What a format keeps in its preferences besides the state of its dialog's window.
    virtual void LoadPrefs(std::span<const std::byte> block);
    virtual void SavePrefs(std::span<std::byte> block);

    // Runs the dialog of the format, inside a process scope. Whether it was accepted; without a
    // dialog there is nothing to refuse.
    bool RunDialog();

private:
    int16_t Forward(int16_t selector);
    bool ForwardChecked(int16_t selector);
};

} // namespace Project
