// The frame of a file format: host selectors become virtual operations, and failures become result
// words.
//
// A handler stores what the host passed, runs its operation inside one exception frame, and returns
// the result word: 0 for success, the code of a CLumographError, or 1 for a refusal and for every
// other failure, which the reporter shows.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

namespace Kesto {

class CLumographFormat : public CLumographPlugin {
public:
    virtual HostFormatRecord* GetFormatRecord();
    virtual int16_t GetSelector();

    // The operations. A false return makes the result 1; the ones that return nothing can't refuse.
    virtual bool CanFilterFile();
    virtual bool WithRequiredMemory(); // settles the memory budget before a prepare
    virtual bool DoReadPrepare();
    virtual bool DoReadStart();
    virtual bool DoReadContinue();
    virtual void DoReadFinish();
    virtual bool DoExtraReadStart();
    virtual bool DoExtraReadContinue();
    virtual void DoExtraReadFinish();
    virtual bool DoOptionsPrepare();
    virtual bool DoOptionsStart();
    virtual bool DoOptionsContinue();
    virtual void DoOptionsFinish();
    virtual bool DoEstimatePrepare();
    virtual bool DoEstimateStart();
    virtual bool DoEstimateContinue();
    virtual void DoEstimateFinish();
    virtual bool DoWritePrepare();
    virtual bool DoWriteStart();
    virtual bool DoWriteContinue();
    virtual void DoWriteFinish();
    virtual bool DoExtraWriteStart();
    virtual bool DoExtraWriteContinue();
    virtual void DoExtraWriteFinish();
    virtual void DoExtension20();
    virtual void DoExtension23();
    virtual void DoExtension21();
    virtual void DoExtension22();
    virtual void DoExtension34();
    virtual void DoExtension26();
    virtual void DoForwarded();
    virtual void DoLoad(); // after the object was made
    virtual void
    DoUnload(bool unloading); // before it is deleted; `unloading`: the host lets the module go

    // The handlers, one for each selector.
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data);
    virtual int16_t HandleFilterFile(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleReadPrepare(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleReadStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleReadContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleReadFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraReadStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraReadContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraReadFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleOptionsPrepare(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleOptionsStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleOptionsContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleOptionsFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleEstimatePrepare(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleEstimateStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleEstimateContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleEstimateFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleWritePrepare(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleWriteStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleWriteContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleWriteFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraWriteStart(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraWriteContinue(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtraWriteFinish(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension20(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension23(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension21(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension22(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension34(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleExtension26(HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleForwarded(int16_t selector, HostFormatRecord* record, intptr_t* data);
    virtual int16_t HandleUnload(bool unloading);

private:
    using Question = bool (CLumographFormat::*)();
    using Command = void (CLumographFormat::*)();

    // The shapes of the handlers.
    void BeginSelector(int16_t selector, HostFormatRecord* record, intptr_t* data);
    int16_t Prepare(int16_t selector, HostFormatRecord* record, intptr_t* data, Question operation);
    int16_t StartPhase(int16_t selector, HostFormatRecord* record, intptr_t* data,
                       Question operation);
    int16_t Ask(int16_t selector, HostFormatRecord* record, intptr_t* data, Question operation);
    int16_t Tell(int16_t selector, HostFormatRecord* record, intptr_t* data, Command operation);
};

} // namespace Kesto
