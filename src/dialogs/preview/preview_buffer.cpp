#include "dialogs/preview/preview_buffer.h"

#include <cstring>
#include <new>

namespace Project {

bool PreviewBuffer::Allocate(const HostBufferSuite* suite, size_t size)
{
    Free();
    if (!TakeFromHost(suite, size)) {
        fOwn.reset(new (std::nothrow) uint8_t[size]);
        fBytes = fOwn.get();
    }
    if (fBytes == nullptr)
        return false;
    std::memset(fBytes, 0, size);
    fSize = size;
    return true;
}

bool PreviewBuffer::TakeFromHost(const HostBufferSuite* suite, size_t size)
{
    fSuite.emplace(suite);
    if (fSuite->Allocate(static_cast<int64_t>(size), fBuffer) != kHostNoError || fBuffer == nullptr)
        return false;
    fBytes = static_cast<uint8_t*>(fSuite->Lock(fBuffer));
    if (fBytes != nullptr)
        return true;
    fSuite->Free(fBuffer);
    fBuffer = nullptr;
    return false;
}

void PreviewBuffer::Free()
{
    if (fBuffer != nullptr) {
        fSuite->Unlock(fBuffer);
        fSuite->Free(fBuffer);
    }
    fBuffer = nullptr;
    fOwn.reset();
    fBytes = nullptr;
    fSize = 0;
}

} // namespace Project
