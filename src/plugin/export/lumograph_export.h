// The frame of an export: the host's five selectors as operations.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

namespace Kesto {

class CLumographExport : public CLumographPlugin {
public:
    virtual HostExportRecord* GetExportRecord();
    virtual int16_t GetSelector();
    const HostBasicSuite* GetBasicSuite() override;
    const char* WindowClassPrefix() const override { return "LGExport_"; }

    // The operations. A false return makes the result 1.
    virtual bool WithRequiredMemory(); // settles the memory budget before a check
    virtual bool DoCheck() { return true; }
    virtual bool DoPrepare() { return false; }
    virtual bool DoStart() { return true; }
    virtual void DoContinue() {}

    // The handlers, one for each selector; the check is what the host calls parameters, and the
    // finish runs DoContinue.
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data);
    virtual int16_t HandleCheck(HostExportRecord* record, intptr_t* data);
    virtual int16_t HandlePrepare(HostExportRecord* record, intptr_t* data);
    virtual int16_t HandleStart(HostExportRecord* record, intptr_t* data);
    virtual int16_t HandleFinish(HostExportRecord* record, intptr_t* data);
};

} // namespace Kesto
