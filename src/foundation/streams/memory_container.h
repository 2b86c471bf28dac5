// A container that keeps its bytes in a memory block of its own.
#pragma once

#include "foundation/base/block.h"
#include "foundation/streams/container.h"

#include <span>

namespace Kesto {

class CMemoryContainer final : public CContainer {
public:
    // Memory is taken in steps of `growth` bytes.
    explicit CMemoryContainer(std::size_t growth = 4096) : fBlock(growth) {}

    // All bytes; valid until the container grows.
    std::span<const std::byte> Bytes() const { return fBlock.Bytes(); }

    // Replaces all bytes by the next `size` of `source`, and goes to the first. When the source
    // throws, the bytes are undefined.
    void Fill(CStream& source, std::size_t size);

    void SetLength(std::uint64_t size) override;
    void SetPosition(std::uint64_t) override {}
    void ReadBytes(void* buffer, std::size_t size) override;
    void WriteBytes(const void* buffer, std::size_t size) override;

private:
    CMemoryBlock fBlock;
};

} // namespace Kesto
