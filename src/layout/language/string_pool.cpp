#include "layout/language/string_pool.h"

#include <algorithm>

namespace Kesto {

void StringPool::AddBlock(std::size_t atLeast)
{
    const std::size_t size = std::max(kBlockSize, atLeast);
    fBlocks.push_back({std::make_unique<char[]>(size), size});
    fWrite = fBlocks.back().bytes.get();
    fLeft = size;
}

void StringPool::Clear()
{
    if (fBlocks.empty())
        return;
    fBlocks.resize(1);
    fWrite = fBlocks.front().bytes.get();
    fLeft = fBlocks.front().size;
}

} // namespace Kesto
