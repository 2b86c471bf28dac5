// A container over a caller's block.
#pragma once

#include "foundation/streams/container.h"

namespace Kesto {

class CBlock;

class CBlockContainer final : public CContainer {
public:
    // Begins with the block's bytes. The block stays the caller's and outlives the container; null
    // makes an empty store that cannot be written: a write throws the end-of-data error.
    explicit CBlockContainer(CBlock* block);

    void SetLength(std::uint64_t size) override;
    void SetPosition(std::uint64_t) override {}
    void ReadBytes(void* buffer, std::size_t size) override;
    void WriteBytes(const void* buffer, std::size_t size) override;

private:
    CBlock* fBlock;
};

} // namespace Kesto
