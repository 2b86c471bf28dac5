#include "layout/string_pool.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Kesto {

void StringPool::AddBlock(std::size_t atLeast)
{
    const std::size_t size = std::max(kBlockSize, atLeast);
    fBlocks.push_back({std::make_unique<char[]>(size), size});
    fWrite = fBlocks.back().bytes.get();
    fLeft = size;
}

const char* StringPool::InternString(std::string_view bytes)
{
    if (bytes.size() + 1 > fLeft)
        AddBlock(bytes.size() + 1);
    char* const copy = fWrite;
    std::memcpy(copy, bytes.data(), bytes.size());
    fWrite += bytes.size() + 1;
    fLeft -= bytes.size() + 1;
    return copy; // the block was zeroed, so the zero behind it is there
}

void* StringPool::Allocate(std::size_t size)
{
    constexpr std::size_t kAlignment = alignof(void*);
    std::size_t padding = (0 - reinterpret_cast<std::uintptr_t>(fWrite)) % kAlignment;
    if (padding + size > fLeft) {
        AddBlock(size);
        padding = 0;
    }
    char* const bytes = fWrite + padding;
    fWrite = bytes + size;
    fLeft -= padding + size;
    return bytes;
}

void StringPool::Clear()
{
    if (fBlocks.empty())
        return;
    const bool onlyOne = fBlocks.size() == 1;
    fBlocks.resize(1);
    Block& kept = fBlocks.front();
    char* const start = kept.bytes.get();
    std::memset(start, 0, onlyOne ? static_cast<std::size_t>(fWrite - start) : kept.size);
    fWrite = start;
    fLeft = kept.size;
}

} // namespace Kesto
