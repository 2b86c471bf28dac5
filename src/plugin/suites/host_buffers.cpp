#include "plugin/suites/host_buffers.h"

#include <algorithm>
#include <limits>

namespace Kesto {
namespace {

bool IsComplete(const HostBufferSuite* suite)
{
    return suite != nullptr && suite->version == kHostBufferSuiteVersion &&
           suite->count >= kHostBufferSuiteCount && suite->Allocate != nullptr &&
           suite->Lock != nullptr && suite->Unlock != nullptr && suite->Free != nullptr &&
           suite->Space != nullptr;
}

} // namespace

CHostBuffers::CHostBuffers(const HostBufferSuite* suite)
    : fSuite(IsComplete(suite) ? suite : nullptr)
{
}

int16_t CHostBuffers::Allocate(int64_t size, HostBuffer& buffer) const
{
    if (fSuite == nullptr || size < 0 || size > std::numeric_limits<int32_t>::max())
        return kHostMemoryFull;
    HostBuffer granted = nullptr;
    const int16_t code = fSuite->Allocate(static_cast<int32_t>(size), &granted);
    if (code != kHostNoError)
        return code;
    buffer = granted;
    return kHostNoError;
}

void* CHostBuffers::Lock(HostBuffer buffer) const
{
    constexpr uint8_t kMoveHigh = 0;
    return fSuite != nullptr ? fSuite->Lock(buffer, kMoveHigh) : nullptr;
}

void CHostBuffers::Unlock(HostBuffer buffer) const
{
    if (fSuite != nullptr)
        fSuite->Unlock(buffer);
}

void CHostBuffers::Free(HostBuffer buffer) const
{
    if (fSuite != nullptr)
        fSuite->Free(buffer);
}

int32_t CHostBuffers::Space() const
{
    return fSuite != nullptr ? fSuite->Space() : 0;
}

CHostBuffer::~CHostBuffer()
{
    if (fBuffer == nullptr)
        return;
    if (fLocked)
        fSuite.Unlock(fBuffer);
    fSuite.Free(fBuffer);
}

uint8_t* CHostBuffer::Lock()
{
    if (fBuffer == nullptr)
        return nullptr;
    auto* const address = static_cast<uint8_t*>(fSuite.Lock(fBuffer));
    fLocked = address != nullptr;
    return address;
}

int16_t AllocateRowBuffer(const CHostBuffers& suite, int32_t rowStride, int16_t minRows,
                          int16_t maxRows, int32_t reserve, int16_t& outRows, CHostBuffer& buffer)
{
    if (rowStride < 1 || reserve < 1)
        return kHostNoError; // rows without pixels: there is nothing to ask for
    int32_t rows = std::min<int32_t>(suite.Space() / reserve / rowStride, maxRows);
    int16_t code = kHostNoError;
    for (; rows >= minRows; --rows) {
        code = buffer.Allocate(int64_t{rows} * rowStride);
        if (code == kHostNoError) {
            outRows = static_cast<int16_t>(rows);
            break;
        }
    }
    return code;
}

} // namespace Kesto
