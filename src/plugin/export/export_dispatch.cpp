#include "plugin/export/export_dispatch.h"

namespace Kesto {
namespace {

CExportObject gExport;

int16_t Serve(const CExportObject::Call& call)
{
    switch (call.selector) {
    case kExportAbout:
        return gExport.About(call);
    case kExportPrepare:
        return gExport.Open(call, &CLumographExport::HandlePrepare);
    case kExportStart:
        return gExport.Tell(call, &CLumographExport::HandleStart);
    case kExportFinish:
        return gExport.Finish(call, &CLumographExport::HandleFinish);
    case kExportParameters:
        return gExport.Open(call, &CLumographExport::HandleCheck);
    default:
        return kHostNoError;
    }
}

} // namespace

void DispatchExport(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, CExportObject::Factory factory)
{
    gExport.Dispatch({selector, record, data, index, factory}, *result, Serve);
}

} // namespace Kesto
