#include "plugin/filter/filter_dispatch.h"

namespace Kesto {
namespace {

CFilterObject gFilter(DropFilterHelper);

int16_t Serve(const CFilterObject::Call& call)
{
    // Open makes an object where there is none, Tell needs a living one, Finish ends it.
    switch (call.selector) {
    case kFilterAbout:
        return gFilter.About(call);
    case kFilterParameters:
        return gFilter.Open(call, &CLumographFilter::HandleParameters);
    case kFilterPrepare:
        return gFilter.Open(call, &CLumographFilter::HandlePrepare);
    case kFilterStart:
        return gFilter.Open(call, &CLumographFilter::HandleStart);
    case kFilterContinue:
        return gFilter.Tell(call, &CLumographFilter::HandleContinue);
    case kFilterFinish:
        return gFilter.Finish(call, &CLumographFilter::HandleFinish);
    default:
        return kHostNoError;
    }
}

} // namespace

void DispatchFilter(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, CFilterObject::Factory factory)
{
    gFilter.Dispatch({selector, record, data, index, factory}, *result, Serve);
}

} // namespace Kesto
