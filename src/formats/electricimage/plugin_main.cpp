#include "formats/electricimage/plugin_main.h"

#include "formats/electricimage/frame_reader.h"
#include "formats/electricimage/frame_writer.h"
#include "formats/electricimage/session.h"
#include "plugin/suites/host_buffers.h"
#include "plugin/suites/host_handles.h"

#include <cstddef>
#include <iterator>

namespace Project {
namespace {

// What the host is asked to leave to the module, in bytes.
constexpr int32_t kMemoryBudget = 0x100000;

using SelectorHandler = void (*)(EIContext&);

void Nothing(EIContext&) {}

void Prepare(EIContext& context)
{
    context.record->memoryBudget = kMemoryBudget;
    if (!Kesto::CHostBuffers(context.record->bufferSuite).IsUsable())
        context.result = kHostMissingSuite;
}

void PrepareWithoutMemory(EIContext& context)
{
    context.record->memoryBudget = 0;
}

void StartOptions(EIContext& context)
{
    context.record->rowsAddress = nullptr;
}

// By selector; about has no business here.
constexpr SelectorHandler kHandlers[] = {
    nullptr, // 0
    Prepare,
    EIReadStart,
    EIReadContinue,
    EIReadFinish, // 1 to 4: read
    PrepareWithoutMemory,
    StartOptions,
    Nothing,
    Nothing, // 5 to 8: options
    PrepareWithoutMemory,
    EIEstimate,
    Nothing,
    Nothing, // 9 to 12: estimate
    Prepare,
    EIWriteStart,
    EIWriteContinue,
    EIWriteFinish, // 13 to 16: write
    Nothing,       // 17: filter file
};
static_assert(std::size(kHandlers) == kFormatFilterFile + 1);

void RunSelector(int16_t selector, EIContext& context)
{
    const bool known = selector > 0 && selector < static_cast<int>(std::size(kHandlers));
    if (known)
        kHandlers[selector](context);
    else
        context.result = kHostBadMode;
}

} // namespace

void EIPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data, int16_t* result)
{
    if (record == nullptr || data == nullptr) {
        *result = kHostBadParameter;
        return;
    }
    const Kesto::CSessionBlock block(record->handleSuite, *data, sizeof(EIContext));
    auto* const context = static_cast<EIContext*>(block.Address());
    if (context == nullptr) {
        *result = kHostMemoryFull;
        return;
    }
    context->record = record;
    context->result = kHostNoError;
    RunSelector(selector, *context);
    *result = context->result;
}

} // namespace Project
