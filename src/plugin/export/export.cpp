#include "plugin/export/export.h"

#include "plugin/frame/lent_block.h"
#include "plugin/frame/lumograph_error.h"

#include <new>

namespace Project {

bool PExport::Forward(int16_t selector)
{
    int16_t code = kHostNoError;
    DoPluginMain(selector, GetExportRecord(), pluginData, &code);
    return code == kHostNoError;
}

int16_t PExport::RunExportTask()
{
    const Kesto::CProcessScope process(*this);
    int16_t code = kHostNoError;
    try {
        ExportDocument();
    } catch (const Kesto::CLumographError& error) {
        code = error.Code();
    } catch (const std::bad_alloc&) {
        code = kHostMemoryFull;
    }
    if (HostExportRecord* const record = GetExportRecord()) {
        record->blockRect = {};
        record->firstPlane = record->lastPlane = 0;
    }
    return code;
}

void PExport::FetchBlock(const HostRect16& rect)
{
    HostExportRecord* const record = GetExportRecord();
    if (record == nullptr || record->fetchBlock == nullptr)
        throw Kesto::CLumographError(kHostBadParameter);
    record->blockRect = rect;
    record->firstPlane = 0;
    record->lastPlane = static_cast<int16_t>(record->planeCount - 1);
    if (const int16_t code = record->fetchBlock(); code != kHostNoError)
        throw Kesto::CLumographError(code);
    const Kesto::CLentBlock block{record->block,      record->blockStride, rect,
                                  record->firstPlane, record->lastPlane,   record->depth};
    if (!block.IsWhole())
        throw Kesto::CLumographError(kHostBadParameter);
}

void PExport::ReportProgress(int32_t done, int32_t total)
{
    const HostExportRecord* const record = GetExportRecord();
    if (record == nullptr)
        return;
    if (record->progressReport != nullptr)
        record->progressReport(done, total);
    if (record->abortCheck != nullptr && record->abortCheck() != 0)
        throw Kesto::CLumographError(kHostUserCanceled);
}

} // namespace Project
