// A filter that is served by one plain selector switch: the writer of a new filter supplies
// DoPluginMain, the work on a document, the settings' place, and has the rest of the frame from
// here.
#pragma once

#include "plugin/filter/lumograph_filter.h"

#include "foundation/settings/settings_record.h"
#include "plugin/frame/plugin_dialog.h"

#include <memory>

namespace Project {

class PFilter : public Kesto::CLumographFilter, public Kesto::CSettingsOwner {
public:
    const char* WindowClassPrefix() const override { return "Sidecar_"; }

    // Four fifths for the module's buffers.
    bool SplitMemory(int32_t total, int32_t& first, int32_t& second) override;

    // Each operation is passed on under its selector; a code that is not 0 is thrown as a
    // CLumographError.
    bool DoParameters() override { return Forward(kFilterParameters); }
    bool DoPrepare() override { return Forward(kFilterPrepare); }
    bool DoStart() override { return Forward(kFilterStart); }
    bool DoContinue() override { return Forward(kFilterContinue); }
    void DoFinish() override { Forward(kFilterFinish); }
    void DoAbout() override {}

    // The filter's work on the document of the record: fetches its blocks and fills the result's.
    // Throws CLumographError for a failure that the host shall hear of.
    virtual void FilterDocument() = 0;

    // Runs FilterDocument inside a process scope. Afterwards nothing is asked of the host any more,
    // however the work ended, so that the host ends the run. Returns 0, the code that the work
    // failed with, or -108 when memory ran out; other failures pass through, for the handler to
    // report.
    virtual int16_t RunFilterTask();

    // The selector switch. Leaves a host code in `*result`, 0 for success.
    virtual void DoPluginMain(int16_t selector, HostFilterRecord* record, intptr_t* data,
                              int16_t* result) = 0;

    // Builds the dialog of the filter, for RunDialog. Null: there is none.
    virtual std::unique_ptr<Kesto::CPluginDialog> GetDialog() = 0;

    // Runs it inside a process scope. Whether it was accepted; a preview has left no requests.
    bool RunDialog();

    // The settings of the filter, which live as long as it does. Loaded when they are first asked
    // for; what can't be loaded is reported, and the defaults hold.
    Kesto::PluginSettings& GetPrefsBag() { return fPrefs.Get(); }

protected:
    // For the work. Lends the source and the result block that the record asks for. Throws
    // CLumographError when the host fails, with its code, and with -50 when it lends less than
    // whole rows.
    void FetchBlocks();

    // Tells the host how far the work is. Throws CLumographError with -128 when the user wants it
    // to stop.
    void ReportProgress(int32_t done, int32_t total);

private:
    bool Forward(int16_t selector);

    Kesto::CSettingsRecord fPrefs{*this, *this};
};

} // namespace Project
