#include "plugin/export/lumograph_export.h"

#include "plugin/frame/handlers.h"

namespace Kesto {

HostExportRecord* CLumographExport::GetExportRecord()
{
    return static_cast<HostExportRecord*>(hostRecord);
}

int16_t CLumographExport::GetSelector()
{
    return hostSelector;
}

const HostBasicSuite* CLumographExport::GetBasicSuite()
{
    const HostExportRecord* const record = GetExportRecord();
    return record != nullptr ? record->basicSuite : CLumographPlugin::GetBasicSuite();
}

bool CLumographExport::WithRequiredMemory()
{
    HostExportRecord* const record = GetExportRecord();
    if (record == nullptr)
        throw CLumographError(kHostBadParameter);
    record->memoryBudget = ShareMemory(record->memoryBudget);
    PrepareMemory();
    return true;
}

int16_t CLumographExport::HandleAbout(const HostAboutRecord* record, intptr_t* data)
{
    return About(*this, {kExportAbout, const_cast<HostAboutRecord*>(record), data});
}

int16_t CLumographExport::HandleCheck(HostExportRecord* record, intptr_t* data)
{
    return Kesto::Prepare<&CLumographExport::DoCheck>(*this, {kExportParameters, record, data});
}

int16_t CLumographExport::HandlePrepare(HostExportRecord* record, intptr_t* data)
{
    return Kesto::Start<&CLumographExport::DoPrepare>(*this, {kExportPrepare, record, data});
}

int16_t CLumographExport::HandleStart(HostExportRecord* record, intptr_t* data)
{
    return Ask<&CLumographExport::DoStart>(*this, {kExportStart, record, data});
}

int16_t CLumographExport::HandleFinish(HostExportRecord* record, intptr_t* data)
{
    return Tell<&CLumographExport::DoContinue>(*this, {kExportFinish, record, data});
}

} // namespace Kesto
