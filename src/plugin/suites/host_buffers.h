// The host's buffer suite, checked once, and a buffer of it that is given back by its scope.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>

namespace Kesto {

// The functions of a buffer suite. A suite that is missing, too old or incomplete is never called:
// requests are refused with -108, addresses are null, and no space is left.
class CHostBuffers {
public:
    explicit CHostBuffers(const HostBufferSuite* suite);

    bool IsUsable() const { return fSuite != nullptr; }

    // Asks for `size` bytes. 0 and the buffer, or a code and `buffer` untouched. A size below 0 or
    // beyond the host's 32 bits is refused with -108 without asking.
    int16_t Allocate(int64_t size, HostBuffer& buffer) const;

    void* Lock(HostBuffer buffer) const;
    void Unlock(HostBuffer buffer) const;
    void Free(HostBuffer buffer) const;

    // Free bytes, as the host counts them.
    int32_t Space() const;

private:
    const HostBufferSuite* fSuite; // null when it is of no use
};

// One buffer, unlocked and freed at the end of its scope.
class CHostBuffer {
public:
    explicit CHostBuffer(const CHostBuffers& suite) : fSuite(suite) {}
    ~CHostBuffer();
    CHostBuffer(const CHostBuffer&) = delete;
    CHostBuffer& operator=(const CHostBuffer&) = delete;

    // Asks for `size` bytes; the buffer must be empty.
    int16_t Allocate(int64_t size) { return fSuite.Allocate(size, fBuffer); }

    // The address of the bytes until the scope ends, or null when there is no buffer or the host
    // gives no address.
    uint8_t* Lock();

    // Leaves the buffer to the host.
    void Abandon() { fBuffer = nullptr; }

private:
    const CHostBuffers& fSuite;
    HostBuffer fBuffer = nullptr;
    bool fLocked = false;
};

// Asks for as many rows of `rowStride` bytes as the host's space divided by `reserve` allows, at
// most `maxRows`, and then for one row less each time until a request is granted or `minRows` were
// refused too. Returns the code of the last request, with the rows granted in `outRows`. When there
// isn't even space for `minRows`, nothing is asked for: the return is 0, and `buffer` and `outRows`
// stay as they are.
int16_t AllocateRowBuffer(const CHostBuffers& suite, int32_t rowStride, int16_t minRows,
                          int16_t maxRows, int32_t reserve, int16_t& outRows, CHostBuffer& buffer);

} // namespace Kesto
