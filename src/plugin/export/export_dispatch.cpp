// From the selectors of an export to the handlers of the plug-in.
#include "plugin/frame/dispatch.h"

#include "plugin/frame/single_plugin.h"

namespace Kesto {
namespace {

CSinglePlugin<CLumographExport> gExport(CreateExportPlugin);

using ExportHandler = int16_t (CLumographExport::*)(HostExportRecord*, intptr_t*);

// Prepare and parameters make the export when there is none, and a failure ends it.
int16_t Open(ProjectIndex index, void* record, intptr_t* data, ExportHandler handler)
{
    auto* const exportRecord = static_cast<HostExportRecord*>(record);
    CLumographExport& object =
        gExport.Acquire(index, exportRecord != nullptr ? exportRecord->basicSuite : nullptr);
    const int16_t result = (object.*handler)(exportRecord, data);
    if (result != kHostNoError)
        gExport.End();
    return result;
}

int16_t About(ProjectIndex index, void* record, intptr_t* data)
{
    std::unique_ptr<CLumographExport> object = gExport.Make(index);
    const int16_t result = object->HandleAbout(static_cast<const HostAboutRecord*>(record), data);
    object.reset();
    RunCleanUpList();
    return result;
}

int16_t Tell(void* record, intptr_t* data, ExportHandler handler)
{
    CLumographExport* const object = gExport.Get();
    return object != nullptr ? (object->*handler)(static_cast<HostExportRecord*>(record), data)
                             : int16_t{kHostNoError};
}

int16_t Finish(void* record, intptr_t* data)
{
    const int16_t result = Tell(record, data, &CLumographExport::HandleFinish);
    gExport.End();
    return result;
}

int16_t Serve(int16_t selector, void* record, intptr_t* data, ProjectIndex index)
{
    switch (selector) {
    case kExportAbout:
        return About(index, record, data);
    case kExportPrepare:
        return Open(index, record, data, &CLumographExport::HandlePrepare);
    case kExportStart:
        return Tell(record, data, &CLumographExport::HandleStart);
    case kExportFinish:
        return Finish(record, data);
    case kExportParameters:
        return Open(index, record, data, &CLumographExport::HandleCheck);
    default:
        return kHostNoError;
    }
}

} // namespace

void DispatchExport(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index)
{
    try {
        *result = Serve(selector, record, data, index);
    } catch (...) {
        gExport.End();
        *result = kHostFailed;
    }
}

} // namespace Kesto
