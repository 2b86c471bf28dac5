#include "plugin/filter/lumograph_filter.h"

#include "foundation/base/service.h"
#include "pixels/tiles/virtual_allocator.h"
#include "pixels/tiles/virtual_heap.h"
#include "plugin/frame/handlers.h"
#include "plugin/suites/buffer_suite_allocator.h"
#include "plugin/suites/host_properties.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace Kesto {
namespace {

constexpr int32_t kMostFloor = 0x80000; // bytes that each side of the bargain has at least
constexpr uint64_t kLeastTileMemory = 0x2000000;
constexpr uint64_t kMostTileMemory = 0xC0000000;

uint64_t WithinTileMemory(uint64_t bytes)
{
    return std::clamp(bytes, kLeastTileMemory, kMostTileMemory);
}

// A share above all of the memory, or below none, is clamped; `low` wins where the two cross.
int32_t Clamp(int32_t share, int32_t low, int32_t high)
{
    return std::max(low, std::min(share, high));
}

} // namespace

CLumographFilter::~CLumographFilter()
{
    DropFilterHelper();
}

HostFilterRecord* CLumographFilter::GetFilterRecord()
{
    return static_cast<HostFilterRecord*>(hostRecord);
}

int16_t CLumographFilter::GetSelector()
{
    return hostSelector;
}

const HostBasicSuite* CLumographFilter::GetBasicSuite()
{
    const HostFilterRecord* const record = GetFilterRecord();
    return record != nullptr ? record->basicSuite : CLumographPlugin::GetBasicSuite();
}

// Both shares are kept above a floor, so with a small budget their sum may pass it.
bool CLumographFilter::WithRequiredMemory()
{
    HostFilterRecord* const record = GetFilterRecord();
    if (record == nullptr)
        throw CLumographError(kHostBadParameter);
    const int32_t total = record->spaceBudget;
    const int32_t sum = ShareMemory(total);
    const int32_t second = sum - memoryShare;
    const int32_t floor = std::min(total / 2, kMostFloor);
    const int32_t ours = Clamp(memoryShare, floor, total - floor);
    const int32_t hosts = Clamp(second, floor, total - ours);
    memoryShare = ours;
    record->spaceBudget = hosts + ours;
    record->bufferShare = ours;
    PrepareMemory();
    if (useHostBuffers) {
        record->spaceBudget = hosts;
        record->bufferShare = 0;
    }
    return true;
}

void CLumographFilter::PrepareMemory()
{
    if (memoryReady)
        return;
    const HostFilterRecord* const record = GetFilterRecord();
    const int32_t ours = record != nullptr ? record->bufferShare : 0;
    const uint64_t share = WithinTileMemory(static_cast<uint64_t>(std::max(ours, 0)));
    DropFilterHelper();
    if (useHostBuffers)
        UseHostBuffers();
    OpenTileStore(std::min(WithinTileMemory(GetHostMemory() / 2), share));
    memoryReady = true;
}

void CLumographFilter::UseHostBuffers()
{
    const auto* const suite =
        HostSuites().Find<HostBufferSuite>(kHostBufferSuiteName, kHostBufferSuiteNameVersion);
    if (suite != nullptr)
        CVirtualAllocator::Install(std::make_shared<CBufferSuiteAllocator>(suite));
}

void CLumographFilter::ClearRequests()
{
    HostFilterRecord* const record = GetFilterRecord();
    if (record == nullptr)
        return;
    record->sourceBlockRect = record->resultBlockRect = record->maskBlockRect = {};
    record->sourceFirstPlane = record->sourceLastPlane = 0;
    record->resultFirstPlane = record->resultLastPlane = 0;
    if (HostWideRects* const wide = record->wideRects)
        wide->source = wide->result = wide->mask = {};
}

bool CLumographFilter::EndSessionUnless(bool ok)
{
    if (!ok)
        filterFlags &= ~kFilterFlag_Session;
    return ok;
}

int16_t CLumographFilter::HandleAbout(const HostAboutRecord* record, intptr_t* data)
{
    filterFlags &= ~kFilterFlag_Session;
    return About(*this, {kFilterAbout, const_cast<HostAboutRecord*>(record), data});
}

int16_t CLumographFilter::HandleParameters(HostFilterRecord* record, intptr_t* data)
{
    filterFlags |= kFilterFlag_Session;
    return Ask<&CLumographFilter::DoParameters>(*this, {kFilterParameters, record, data});
}

int16_t CLumographFilter::HandlePrepare(HostFilterRecord* record, intptr_t* data)
{
    return Work(*this, {kFilterPrepare, record, data},
                [&] { return EndSessionUnless(WithRequiredMemory() && DoPrepare()); });
}

int16_t CLumographFilter::HandleStart(HostFilterRecord* record, intptr_t* data)
{
    return Work(*this, {kFilterStart, record, data}, [&] {
        if (const auto value = CHostProperties(HostSuites()).Read(kPropertyUseHostBuffers))
            useHostBuffers = *value != 0;
        PrepareMemory();
        return EndSessionUnless(DoStart());
    });
}

int16_t CLumographFilter::HandleContinue(HostFilterRecord* record, intptr_t* data)
{
    return Ask<&CLumographFilter::DoContinue>(*this, {kFilterContinue, record, data});
}

int16_t CLumographFilter::HandleFinish(HostFilterRecord* record, intptr_t* data)
{
    return Work(*this, {kFilterFinish, record, data}, [&] {
        DoFinish();
        filterFlags &= ~kFilterFlag_Session;
        return true;
    });
}

void DropFilterHelper()
{
    if (CVirtualAllocator::Installed() == nullptr)
        return;
    CVirtualAllocator::Install(nullptr);
    CServiceT<CVirtualHeap>::Get()->FreeBlockBytes(std::numeric_limits<uint64_t>::max());
}

} // namespace Kesto
