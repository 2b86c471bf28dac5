#include "foundation/streams/block_container.h"

#include "foundation/base/block.h"
#include "foundation/streams/block_bytes.h"

namespace Kesto {

CBlockContainer::CBlockContainer(CBlock* block)
    : CContainer(block == nullptr ? 0 : block->GetSize()), fBlock(block)
{
}

void CBlockContainer::SetLength(std::uint64_t size)
{
    if (fBlock != nullptr)
        ResizeBlock(*fBlock, size);
}

void CBlockContainer::ReadBytes(void* buffer, std::size_t size)
{
    if (fBlock != nullptr)
        ReadBlock(*fBlock, fPosition, buffer, size);
}

void CBlockContainer::WriteBytes(const void* buffer, std::size_t size)
{
    if (fBlock == nullptr)
        ThrowEndOfData();
    WriteBlock(*fBlock, fPosition, buffer, size);
}

} // namespace Kesto
