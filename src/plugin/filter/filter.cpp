#include "plugin/filter/filter.h"

#include "foundation/base/geometry.h"
#include "plugin/frame/document_work.h"
#include "plugin/frame/lent_block.h"
#include "plugin/frame/lumograph_error.h"
#include "plugin/frame/run_dialog.h"

namespace Project {
namespace {

// Ends the requests of a run with its scope.
class CFilterRequests {
public:
    explicit CFilterRequests(Kesto::CLumographFilter& filter) : fFilter(filter) {}
    ~CFilterRequests() { fFilter.ClearRequests(); }
    CFilterRequests(const CFilterRequests&) = delete;
    CFilterRequests& operator=(const CFilterRequests&) = delete;

private:
    Kesto::CLumographFilter& fFilter;
};

} // namespace

bool PFilter::SplitMemory(int32_t total, int32_t& first, int32_t& second)
{
    first = static_cast<int32_t>(Kesto::RoundHalfAway(total * 0.8));
    second = total - first;
    return true;
}

bool PFilter::Forward(int16_t selector)
{
    int16_t code = kHostNoError;
    DoPluginMain(selector, GetFilterRecord(), pluginData, &code);
    if (code != kHostNoError)
        throw Kesto::CLumographError(code);
    return true;
}

int16_t PFilter::RunFilterTask()
{
    const Kesto::CProcessScope process(*this);
    const CFilterRequests requests(*this);
    return Kesto::CodeOfWork([this] { FilterDocument(); });
}

bool PFilter::RunDialog()
{
    const Kesto::CProcessScope process(*this);
    const CFilterRequests requests(*this);
    const std::unique_ptr<Kesto::CPluginDialog> dialog = GetDialog();
    return Kesto::RunPluginDialog(dialog.get(), fPrefs);
}

void PFilter::FetchBlocks()
{
    const HostFilterRecord* const record = GetFilterRecord();
    if (record == nullptr)
        throw Kesto::CLumographError(kHostBadParameter);
    Kesto::FetchFromHost(record->fetchBlocks);
    const Kesto::CLentBlock lent[] = {
        {record->sourceBlock, record->sourceStride, record->sourceBlockRect,
         record->sourceFirstPlane, record->sourceLastPlane, record->depth},
        {record->resultBlock, record->resultStride, record->resultBlockRect,
         record->resultFirstPlane, record->resultLastPlane, record->depth},
    };
    for (const Kesto::CLentBlock& block : lent)
        if (!block.IsEmpty() && !block.IsWhole())
            throw Kesto::CLumographError(kHostBadParameter);
}

void PFilter::ReportProgress(int32_t done, int32_t total)
{
    if (const HostFilterRecord* const record = GetFilterRecord())
        Kesto::ReportToHost(record->progressReport, record->abortCheck, done, total);
}

} // namespace Project
