// A filter that is served by one plain selector switch: the writer of a new filter supplies
// DoPluginMain and has the rest of the frame from here.
#pragma once

#include "plugin/filter/lumograph_filter.h"

namespace Project {

class PFilter : public Kesto::CLumographFilter {
public:
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

    // The selector switch. Leaves a host code in `*result`, 0 for success, and throws nothing.
    virtual void DoPluginMain(int16_t selector, HostFilterRecord* record, intptr_t* data,
                              int16_t* result) = 0;

private:
    bool Forward(int16_t selector);
};

} // namespace Project
