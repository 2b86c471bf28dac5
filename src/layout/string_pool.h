// The memory behind the names and texts of the layout language.
//
// Bytes are handed out from large zeroed blocks and given back all at once. A pointer from a pool stays valid until the
// pool is cleared or dies, so it may be stored freely.
#pragma once

#include <cstddef>
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

    // A copy of `bytes` with a zero byte behind it. What the current block has left is abandoned when it is too small.
    const char* InternString(std::string_view bytes);

    // `size` zeroed bytes, aligned for any pointer.
    void* Allocate(std::size_t size);

    // Takes everything back. One block is kept for what comes next.
    void Clear();

    std::size_t BlockCount() const { return fBlocks.size(); }

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size;
    };

    void AddBlock(std::size_t atLeast);

    std::vector<Block> fBlocks;
    char* fWrite = nullptr;
    std::size_t fLeft = 0;
};

} // namespace Kesto
