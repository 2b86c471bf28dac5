#include "plugin/export/export_dispatch.h"

namespace Kesto {
namespace {

using Factory = CSinglePlugin<CLumographExport>::Factory;
using ExportHandler = int16_t (CLumographExport::*)(HostExportRecord*, intptr_t*);

CSinglePlugin<CLumographExport> gExport;

// One call: what the host passed, and how to make the object.
struct ExportCall {
    int16_t selector;
    void* record;
    intptr_t* data;
    ProjectIndex index;
    Factory factory;

    HostExportRecord* ExportRecord() const { return static_cast<HostExportRecord*>(record); }
};

// Prepare and parameters make the export when there is none, and a failure ends it.
int16_t Open(const ExportCall& call, ExportHandler handler)
{
    HostExportRecord* const record = call.ExportRecord();
    CLumographExport& object =
        gExport.Acquire(call.index, call.factory, record != nullptr ? record->basicSuite : nullptr);
    const int16_t result = (object.*handler)(record, call.data);
    if (result != kHostNoError)
        gExport.End();
    return result;
}

int16_t About(const ExportCall& call)
{
    std::unique_ptr<CLumographExport> object =
        CSinglePlugin<CLumographExport>::Make(call.index, call.factory);
    const int16_t result =
        object->HandleAbout(static_cast<const HostAboutRecord*>(call.record), call.data);
    object.reset();
    RunCleanUpList();
    return result;
}

int16_t Tell(const ExportCall& call, ExportHandler handler)
{
    CLumographExport* const object = gExport.Get();
    return object != nullptr ? (object->*handler)(call.ExportRecord(), call.data)
                             : int16_t{kHostNoError};
}

int16_t Finish(const ExportCall& call)
{
    const int16_t result = Tell(call, &CLumographExport::HandleFinish);
    gExport.End();
    return result;
}

int16_t Serve(const ExportCall& call)
{
    switch (call.selector) {
    case kExportAbout:
        return About(call);
    case kExportPrepare:
        return Open(call, &CLumographExport::HandlePrepare);
    case kExportStart:
        return Tell(call, &CLumographExport::HandleStart);
    case kExportFinish:
        return Finish(call);
    case kExportParameters:
        return Open(call, &CLumographExport::HandleCheck);
    default:
        return kHostNoError;
    }
}

} // namespace

void DispatchExport(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, Factory factory)
{
    try {
        *result = Serve({selector, record, data, index, factory});
    } catch (...) {
        gExport.End();
        *result = kHostFailed;
    }
}

} // namespace Kesto
