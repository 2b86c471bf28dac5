#include "foundation/streams/memory_container.h"

#include "foundation/streams/block_bytes.h"

namespace Kesto {

void CMemoryContainer::Fill(CStream& source, std::size_t size)
{
    fBlock.SetSize(size);
    fSize = size;
    fPosition = 0;
    source.Read(fBlock.Data(), size);
}

void CMemoryContainer::SetLength(std::uint64_t size)
{
    ResizeBlock(fBlock, size);
}

void CMemoryContainer::ReadBytes(void* buffer, std::size_t size)
{
    ReadBlock(fBlock, fPosition, buffer, size);
}

void CMemoryContainer::WriteBytes(const void* buffer, std::size_t size)
{
    WriteBlock(fBlock, fPosition, buffer, size);
}

} // namespace Kesto
