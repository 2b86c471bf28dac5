// An export that is served by one plain selector switch: the writer of a new export supplies
// DoPluginMain and has the rest of the frame from here.
#pragma once

#include "plugin/export/lumograph_export.h"

namespace Project {

class PExport : public Kesto::CLumographExport {
public:
    // The budget is left to the switch.
    bool WithRequiredMemory() override { return true; }

    // Each operation is passed on under its selector. A code that is not 0 is a refusal, and the
    // host sees 1 in its place; that of the finish is dropped.
    bool DoCheck() override { return Forward(kExportParameters); }
    bool DoPrepare() override { return Forward(kExportPrepare); }
    bool DoStart() override { return Forward(kExportStart); }
    void DoContinue() override { Forward(kExportFinish); }

    // The selector switch. Leaves a host code in `*result`, 0 for success, and throws nothing.
    virtual void DoPluginMain(int16_t selector, HostExportRecord* record, intptr_t* data,
                              int16_t* result) = 0;

private:
    bool Forward(int16_t selector)
    {
        int16_t code = kHostNoError;
        DoPluginMain(selector, GetExportRecord(), pluginData, &code);
        return code == kHostNoError;
    }
};

} // namespace Project
