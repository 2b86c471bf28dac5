// From the selectors of a filter to the handlers of the plug-in.
#include "plugin/frame/dispatch.h"

#include "plugin/frame/single_plugin.h"

#include <utility>

namespace Kesto {
namespace {

CSinglePlugin<CLumographFilter> gFilter(CreateFilterPlugin);
std::unique_ptr<CFilterHelper> gHelper;

void EndFilter()
{
    gFilter.End();
    SetFilterHelper(nullptr);
}

using FilterHandler = int16_t (CLumographFilter::*)(HostFilterRecord*, intptr_t*);

// Parameters, prepare and start make the filter when there is none, and a failure ends it.
int16_t Open(ProjectIndex index, void* record, intptr_t* data, FilterHandler handler)
{
    auto* const filterRecord = static_cast<HostFilterRecord*>(record);
    CLumographFilter& filter =
        gFilter.Acquire(index, filterRecord != nullptr ? filterRecord->basicSuite : nullptr);
    const int16_t result = (filter.*handler)(filterRecord, data);
    if (result != kHostNoError)
        EndFilter();
    return result;
}

int16_t About(ProjectIndex index, void* record, intptr_t* data)
{
    std::unique_ptr<CLumographFilter> filter = gFilter.Make(index);
    const int16_t result = filter->HandleAbout(static_cast<const HostAboutRecord*>(record), data);
    filter.reset();
    RunCleanUpList();
    SetFilterHelper(nullptr);
    return result;
}

int16_t Continue(void* record, intptr_t* data)
{
    CLumographFilter* const filter = gFilter.Get();
    return filter != nullptr ? filter->HandleContinue(static_cast<HostFilterRecord*>(record), data)
                             : int16_t{kHostNoError};
}

int16_t Finish(void* record, intptr_t* data)
{
    CLumographFilter* const filter = gFilter.Get();
    const int16_t result = filter != nullptr
                               ? filter->HandleFinish(static_cast<HostFilterRecord*>(record), data)
                               : int16_t{kHostNoError};
    EndFilter();
    return result;
}

int16_t Serve(int16_t selector, void* record, intptr_t* data, ProjectIndex index)
{
    switch (selector) {
    case kFilterAbout:
        return About(index, record, data);
    case kFilterParameters:
        return Open(index, record, data, &CLumographFilter::HandleParameters);
    case kFilterPrepare:
        return Open(index, record, data, &CLumographFilter::HandlePrepare);
    case kFilterStart:
        return Open(index, record, data, &CLumographFilter::HandleStart);
    case kFilterContinue:
        return Continue(record, data);
    case kFilterFinish:
        return Finish(record, data);
    default:
        return kHostNoError;
    }
}

} // namespace

void SetFilterHelper(std::unique_ptr<CFilterHelper> helper)
{
    gHelper = std::move(helper);
}

void DispatchFilter(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index)
{
    try {
        *result = Serve(selector, record, data, index);
    } catch (...) {
        gFilter.End();
        *result = kHostFailed;
    }
}

} // namespace Kesto
