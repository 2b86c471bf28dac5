#include "foundation/streams/block_bytes.h"

#include "foundation/base/block.h"
#include "foundation/streams/container.h"

#include <cstring>
#include <new>
#include <utility>

namespace Kesto {

void ResizeBlock(CBlock& block, std::uint64_t size)
{
    if (!std::in_range<std::size_t>(size))
        throw std::bad_alloc();
    const std::size_t oldSize = block.GetSize();
    block.SetSize(static_cast<std::size_t>(size));
    if (size > oldSize)
        std::memset(block.Data() + oldSize, 0, block.GetSize() - oldSize);
}

void ReadBlock(const CBlock& block, std::uint64_t position, void* buffer, std::size_t size)
{
    if (position > block.GetSize() || size > block.GetSize() - position)
        ThrowEndOfData();
    std::memcpy(buffer, block.Data() + position, size);
}

void WriteBlock(CBlock& block, std::uint64_t position, const void* buffer, std::size_t size)
{
    if (position > block.GetSize())
        ResizeBlock(block, position);
    if (size > block.GetSize() - position)
        block.SetSize(static_cast<std::size_t>(position + size));
    std::memcpy(block.Data() + position, buffer, size);
}

} // namespace Kesto
