#include "plugin/export/export.h"

#include "plugin/frame/document_work.h"
#include "plugin/frame/lent_block.h"
#include "plugin/frame/lumograph_error.h"
#include "plugin/frame/run_dialog.h"

namespace Project {
namespace {

// Ends the requests of a run with its scope.
class CExportRequests {
public:
    explicit CExportRequests(Kesto::CLumographExport& object) : fExport(object) {}
    ~CExportRequests()
    {
        if (HostExportRecord* const record = fExport.GetExportRecord()) {
            record->blockRect = {};
            record->firstPlane = record->lastPlane = 0;
        }
    }
    CExportRequests(const CExportRequests&) = delete;
    CExportRequests& operator=(const CExportRequests&) = delete;

private:
    Kesto::CLumographExport& fExport;
};

} // namespace

bool PExport::Forward(int16_t selector)
{
    int16_t code = kHostNoError;
    DoPluginMain(selector, GetExportRecord(), pluginData, &code);
    return code == kHostNoError;
}

int16_t PExport::RunExportTask()
{
    const Kesto::CProcessScope process(*this);
    const CExportRequests requests(*this);
    return Kesto::CodeOfWork([this] { ExportDocument(); });
}

bool PExport::RunDialog()
{
    const Kesto::CProcessScope process(*this);
    const CExportRequests requests(*this);
    const std::unique_ptr<Kesto::CPluginDialog> dialog = GetDialog();
    return Kesto::RunPluginDialog(dialog.get(), fPrefs);
}

void PExport::FetchBlock(const HostRect16& rect)
{
    HostExportRecord* const record = GetExportRecord();
    if (record == nullptr)
        throw Kesto::CLumographError(kHostBadParameter);
    record->blockRect = rect;
    record->firstPlane = 0;
    record->lastPlane = static_cast<int16_t>(record->planeCount - 1);
    Kesto::FetchFromHost(record->fetchBlock);
    const Kesto::CLentBlock block{record->block,      record->blockStride, rect,
                                  record->firstPlane, record->lastPlane,   record->depth};
    if (!block.IsWhole())
        throw Kesto::CLumographError(kHostBadParameter);
}

void PExport::ReportProgress(int32_t done, int32_t total)
{
    if (const HostExportRecord* const record = GetExportRecord())
        Kesto::ReportToHost(record->progressReport, record->abortCheck, done, total);
}

} // namespace Project
