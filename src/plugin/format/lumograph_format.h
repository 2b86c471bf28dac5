// The operations of a file format, which a plug-in overrides. Each serves one selector of the
// host; format_selectors.cpp says which, and what is done around it.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

namespace Kesto {

class CLumographFormat : public CLumographPlugin {
public:
    virtual HostFormatRecord* GetFormatRecord();
    virtual int16_t GetSelector();
    const HostBasicSuite* GetBasicSuite() override;

    // The operations. A false return makes the result 1; the ones that return nothing can't refuse.
    virtual bool CanFilterFile() { return false; }
    virtual bool WithRequiredMemory(); // settles the memory budget before a prepare
    virtual bool DoReadPrepare() { return true; }
    virtual bool DoReadStart() { return false; }
    virtual bool DoReadContinue() { return true; }
    virtual void DoReadFinish() {}
    virtual bool DoExtraReadStart() { return true; }
    virtual bool DoExtraReadContinue() { return true; }
    virtual void DoExtraReadFinish() {}
    virtual bool DoOptionsPrepare() { return true; }
    virtual bool DoOptionsStart() { return false; }
    virtual bool DoOptionsContinue() { return true; }
    virtual void DoOptionsFinish() {}
    virtual bool DoEstimatePrepare() { return true; }
    virtual bool DoEstimateStart() { return false; }
    virtual bool DoEstimateContinue() { return true; }
    virtual void DoEstimateFinish() {}
    virtual bool DoWritePrepare() { return true; }
    virtual bool DoWriteStart() { return false; }
    virtual bool DoWriteContinue() { return true; }
    virtual void DoWriteFinish() {}
    virtual bool DoExtraWriteStart() { return true; }
    virtual bool DoExtraWriteContinue() { return true; }
    virtual void DoExtraWriteFinish() {}
    virtual void DoExtension20() {}
    virtual void DoExtension23() {}
    virtual void DoExtension21() {}
    virtual void DoExtension22() {}
    virtual void DoExtension34() {}
    virtual void DoExtension26() {}
    virtual void DoForwarded() {}
    virtual void DoLoad() {} // after the object was made
    // Before it is deleted; `unloading`: the host lets the module go.
    virtual void DoUnload([[maybe_unused]] bool unloading) {}

    // The handlers that are of no common shape.
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data);
    virtual int16_t HandleFilterFile(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleForwarded(int16_t selector, HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleUnload(bool unloading);
};

} // namespace Kesto
