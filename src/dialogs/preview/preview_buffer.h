// PreviewBuffer, memory for the pixels of a preview: of the host's buffer suite, or else of the
// process.
#pragma once

#include "plugin/suites/host_buffers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace Project {

class PreviewBuffer {
public:
    PreviewBuffer() = default;
    ~PreviewBuffer() { Free(); }
    PreviewBuffer(const PreviewBuffer&) = delete;
    PreviewBuffer& operator=(const PreviewBuffer&) = delete;

    // Makes room for `size` bytes, all zero, in place of what was there. The suite, which may be
    // null, outlives the buffer. False: there is no memory, and the buffer is empty.
    bool Allocate(const HostBufferSuite* suite, size_t size);
    void Free();

    uint8_t* Bytes() const { return fBytes; } // null when empty
    size_t Size() const { return fSize; }

private:
    bool TakeFromHost(const HostBufferSuite* suite, size_t size);

    std::optional<Kesto::CHostBuffers> fSuite;
    HostBuffer fBuffer = nullptr; // of the suite
    std::unique_ptr<uint8_t[]> fOwn;
    uint8_t* fBytes = nullptr;
    size_t fSize = 0;
};

} // namespace Project
