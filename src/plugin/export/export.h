// An export that is served by one plain selector switch: the writer of a new export supplies
// DoPluginMain, the work on a document, the settings' place, and has the rest of the frame from
// here.
#pragma once

#include "plugin/export/lumograph_export.h"

#include "foundation/settings/settings_record.h"
#include "plugin/frame/plugin_dialog.h"

#include <memory>

namespace Project {

class PExport : public Kesto::CLumographExport, public Kesto::CSettingsOwner {
public:
    const char* WindowClassPrefix() const override { return "Sidecar_"; }

    // The budget is left to the switch.
    bool WithRequiredMemory() override { return true; }

    // Each operation is passed on under its selector. A code that is not 0 is a refusal, and the
    // host sees 1 in its place; that of the finish is dropped.
    bool DoCheck() override { return Forward(kExportParameters); }
    bool DoPrepare() override { return Forward(kExportPrepare); }
    bool DoStart() override { return Forward(kExportStart); }
    void DoContinue() override { Forward(kExportFinish); }

    // The selector switch. Leaves a host code in `*result`, 0 for success.
    virtual void DoPluginMain(int16_t selector, HostExportRecord* record, intptr_t* data,
                              int16_t* result) = 0;

    // Writes the document of the record to its outputPath. Throws CLumographError for a failure
    // that has a code.
    virtual void ExportDocument() = 0;

    // Runs ExportDocument inside a process scope, after which no block is asked for any more.
    // Returns 0, the code that the work failed with, or -108 when memory ran out; other failures
    // pass through, for the handler to report.
    virtual int16_t RunExportTask();

    // Builds the dialog of the export, for RunDialog. Null: there is none.
    virtual std::unique_ptr<Kesto::CPluginDialog> GetDialog() = 0;

    // As a filter's.
    bool RunDialog();

    // The settings of the export, as those of a filter.
    Kesto::PluginSettings& GetPrefsBag() { return fPrefs.Get(); }

protected:
    // For the work: lends the rectangle of the document, with all of its planes. Throws
    // CLumographError when the host fails, with its code, and with -50 when it lends less than
    // whole rows.
    void FetchBlock(const HostRect16& rect);

    // As a filter's.
    void ReportProgress(int32_t done, int32_t total);

private:
    bool Forward(int16_t selector);

    Kesto::CSettingsRecord fPrefs{*this, *this};
};

} // namespace Project
