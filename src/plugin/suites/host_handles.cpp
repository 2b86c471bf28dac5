#include "plugin/suites/host_handles.h"

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace Kesto {
namespace {

bool IsComplete(const HostHandleSuite* suite)
{
    return suite != nullptr && suite->version == kHostHandleSuiteVersion &&
           suite->count >= kHostHandleSuiteCount && suite->New != nullptr &&
           suite->Dispose != nullptr && suite->Lock != nullptr && suite->Unlock != nullptr &&
           suite->Size != nullptr;
}

// A zeroed block of the module's own, kept until the module is unloaded: the host can't say when
// its word ends.
void* NewOwnBlock(size_t size)
{
    static std::vector<std::unique_ptr<std::byte[]>> blocks;
    try {
        return blocks.emplace_back(std::make_unique<std::byte[]>(size)).get();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace

CSessionBlock::CSessionBlock(const HostHandleSuite* suite, intptr_t& data, int32_t size)
    : fSuite(IsComplete(suite) ? suite : nullptr)
{
    if (fSuite == nullptr) {
        if (data == 0)
            data = reinterpret_cast<intptr_t>(NewOwnBlock(static_cast<size_t>(size)));
        fAddress = reinterpret_cast<void*>(data);
        return;
    }
    constexpr uint8_t kMoveHigh = 0;
    const bool isNew = data == 0;
    fHandle = isNew ? fSuite->New(size) : reinterpret_cast<HostHandle>(data);
    if (fHandle == nullptr)
        return;
    fAddress = fSuite->Lock(fHandle, kMoveHigh);
    if (!isNew)
        return;
    if (fAddress == nullptr) {
        fSuite->Dispose(fHandle); // it was never zeroed, and no word names it yet
        return;
    }
    std::memset(fAddress, 0, static_cast<size_t>(size));
    data = reinterpret_cast<intptr_t>(fHandle);
}

CSessionBlock::~CSessionBlock()
{
    if (fHandle != nullptr && fAddress != nullptr && fSuite != nullptr)
        fSuite->Unlock(fHandle);
}

} // namespace Kesto
