// A block as the store of a container: checked moves of bytes at 64-bit positions.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Kesto {

class CBlock;

// Bytes gained are zero. Throws std::bad_alloc.
void ResizeBlock(CBlock& block, std::uint64_t size);

// Throws the end-of-data error where the block ends before the bytes do: its owner may have cut it.
void ReadBlock(const CBlock& block, std::uint64_t position, void* buffer, std::size_t size);

// Makes the block as long as the bytes need.
void WriteBlock(CBlock& block, std::uint64_t position, const void* buffer, std::size_t size);

} // namespace Kesto
