#include "plugin/filter/filter_dispatch.h"

namespace Kesto {
namespace {

using Factory = CSinglePlugin<CLumographFilter>::Factory;
using FilterHandler = int16_t (CLumographFilter::*)(HostFilterRecord*, intptr_t*);

CSinglePlugin<CLumographFilter> gFilter;

void EndFilter()
{
    gFilter.End();
    DropFilterHelper();
}

// One call: what the host passed, and how to make the filter.
struct FilterCall {
    int16_t selector;
    void* record;
    intptr_t* data;
    ProjectIndex index;
    Factory factory;

    HostFilterRecord* FilterRecord() const { return static_cast<HostFilterRecord*>(record); }
};

// Parameters, prepare and start make the filter when there is none, and a failure ends it.
int16_t Open(const FilterCall& call, FilterHandler handler)
{
    HostFilterRecord* const record = call.FilterRecord();
    CLumographFilter& filter =
        gFilter.Acquire(call.index, call.factory, record != nullptr ? record->basicSuite : nullptr);
    const int16_t result = (filter.*handler)(record, call.data);
    if (result != kHostNoError)
        EndFilter();
    return result;
}

int16_t About(const FilterCall& call)
{
    std::unique_ptr<CLumographFilter> filter =
        CSinglePlugin<CLumographFilter>::Make(call.index, call.factory);
    const int16_t result =
        filter->HandleAbout(static_cast<const HostAboutRecord*>(call.record), call.data);
    filter.reset();
    RunCleanUpList();
    DropFilterHelper();
    return result;
}

int16_t Tell(const FilterCall& call, FilterHandler handler)
{
    CLumographFilter* const filter = gFilter.Get();
    return filter != nullptr ? (filter->*handler)(call.FilterRecord(), call.data)
                             : int16_t{kHostNoError};
}

int16_t Finish(const FilterCall& call)
{
    const int16_t result = Tell(call, &CLumographFilter::HandleFinish);
    EndFilter();
    return result;
}

int16_t Serve(const FilterCall& call)
{
    switch (call.selector) {
    case kFilterAbout:
        return About(call);
    case kFilterParameters:
        return Open(call, &CLumographFilter::HandleParameters);
    case kFilterPrepare:
        return Open(call, &CLumographFilter::HandlePrepare);
    case kFilterStart:
        return Open(call, &CLumographFilter::HandleStart);
    case kFilterContinue:
        return Tell(call, &CLumographFilter::HandleContinue);
    case kFilterFinish:
        return Finish(call);
    default:
        return kHostNoError;
    }
}

} // namespace

void DispatchFilter(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, Factory factory)
{
    try {
        *result = Serve({selector, record, data, index, factory});
    } catch (...) {
        EndFilter();
        *result = kHostFailed;
    }
}

} // namespace Kesto
