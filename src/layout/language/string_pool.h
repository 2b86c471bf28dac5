// The memory of the names and texts of the layout language.
//
// Bytes are handed out from large zeroed blocks and given back all at once. A pointer from a pool
// stays valid until the pool is cleared or dies, so it may be stored freely.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace Kesto {

class StringPool {
public:
    // A block has this size, or the size of the one request that is larger.
    static constexpr std::size_t kBlockSize = 3900;

    StringPool() = default;
    StringPool(const StringPool&) = delete;
    StringPool& operator=(const StringPool&) = delete;

    // A copy of `bytes`, followed by a zero byte. What the current block has left is abandoned
    // when it is too small.
    const char* InternString(std::string_view bytes)
    {
        char* const copy = Take(bytes.size() + 1, 0);
        std::memcpy(copy, bytes.data(), bytes.size());
        copy[bytes.size()] = 0;
        return copy;
    }

    // `size` bytes of any content, aligned for a pointer.
    void* Allocate(std::size_t size)
    {
        return Take(size, (0 - reinterpret_cast<std::uintptr_t>(fWrite)) % alignof(void*));
    }

    // Takes everything back. One block is kept for what comes next.
    void Clear();

    std::size_t BlockCount() const { return fBlocks.size(); }

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size;
    };

    void AddBlock(std::size_t atLeast);

    // The start of a block is aligned, so that no padding is needed there.
    char* Take(std::size_t size, std::size_t padding)
    {
        if (padding + size > fLeft) [[unlikely]] {
            AddBlock(size);
            padding = 0;
        }
        char* const bytes = fWrite + padding;
        fWrite = bytes + size;
        fLeft -= padding + size;
        return bytes;
    }

    std::vector<Block> fBlocks;
    char* fWrite = nullptr;
    std::size_t fLeft = 0;
};

} // namespace Kesto
