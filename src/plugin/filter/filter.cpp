#include "plugin/filter/filter.h"

#include "foundation/base/geometry.h"
#include "plugin/frame/lent_block.h"
#include "plugin/frame/lumograph_error.h"
#include "plugin/frame/run_dialog.h"

#include <new>

namespace Project {
namespace {

// Ends the requests of a run with its scope.
class CRequestScope {
public:
    explicit CRequestScope(Kesto::CLumographFilter& filter) : fFilter(filter) {}
    ~CRequestScope() { fFilter.ClearRequests(); }
    CRequestScope(const CRequestScope&) = delete;
    CRequestScope& operator=(const CRequestScope&) = delete;

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
    const CRequestScope requests(*this);
    try {
        FilterDocument();
        return kHostNoError;
    } catch (const Kesto::CLumographError& error) {
        return error.Code();
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }
}

bool PFilter::RunDialog()
{
    const Kesto::CProcessScope process(*this);
    const CRequestScope requests(*this);
    const std::unique_ptr<Kesto::CPluginDialog> dialog = GetDialog();
    return Kesto::RunPluginDialog(dialog.get(), fPrefs);
}

void PFilter::FetchBlocks()
{
    const HostFilterRecord* const record = GetFilterRecord();
    if (record == nullptr || record->fetchBlocks == nullptr)
        throw Kesto::CLumographError(kHostBadParameter);
    if (const int16_t code = record->fetchBlocks(); code != kHostNoError)
        throw Kesto::CLumographError(code);
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
    const HostFilterRecord* const record = GetFilterRecord();
    if (record == nullptr)
        return;
    if (record->progressReport != nullptr)
        record->progressReport(done, total);
    if (record->abortCheck != nullptr && record->abortCheck() != 0)
        throw Kesto::CLumographError(kHostUserCanceled);
}

} // namespace Project
