// CBlock, a growable piece of memory, and the kinds that take theirs from the heaps of the toolkit.
//
// Memory is taken in multiples of the granularity, so that growing by little steps seldom moves the
// bytes. Invariant: the memory held is the size rounded up, and none is held for a size of 0.
#pragma once

#include <cstddef>
#include <span>

namespace Kesto {

class CBlock {
public:
    CBlock(const CBlock&) = delete;
    CBlock& operator=(const CBlock&) = delete;
    virtual ~CBlock() = default;

    // Changes the memory held from `oldAllocated` to `newAllocated` bytes and keeps what fits.
    // Bytes gained are zero if `zeroed` is set and undefined otherwise. With 0 bytes none is held.
    // Throws std::bad_alloc and leaves all as it was.
    virtual void Reallocate(std::size_t newAllocated, std::size_t oldAllocated, bool zeroed) = 0;

    // Gives all memory back; the size is 0 then.
    virtual void Free() = 0;

    // Makes the size `newSize`. Where that takes more memory, `zeroed` asks for zeros in it; a step
    // within the rounding takes none and shows the bytes that are there. Pointers to the bytes are
    // valid until the next call. Throws std::bad_alloc and leaves the block as it was.
    void SetSize(std::size_t newSize, bool zeroed = false);

    std::size_t GetSize() const { return fSize; }
    std::size_t GetGranularity() const { return fGranularity; }

    std::byte* Data() { return fData; }
    const std::byte* Data() const { return fData; }
    std::span<std::byte> Bytes() { return {fData, fSize}; }
    std::span<const std::byte> Bytes() const { return {fData, fSize}; }

protected:
    // A granularity of 1 or less takes the exact size.
    explicit CBlock(std::size_t granularity) : fGranularity(granularity) {}

    std::byte* fData = nullptr; // the memory is the derived class's
    std::size_t fSize = 0;
    std::size_t fGranularity;

private:
    std::size_t Rounded(std::size_t size) const;
};

// A block with memory of the C heap, which all three heaps of the toolkit use.
class CHeapBlock : public CBlock {
public:
    ~CHeapBlock() override { CHeapBlock::Free(); }
    void Reallocate(std::size_t newAllocated, std::size_t oldAllocated, bool zeroed) override;
    void Free() override;

    // Exchanges the bytes with another block's.
    void Swap(CHeapBlock& other) noexcept;

protected:
    explicit CHeapBlock(std::size_t granularity) : CBlock(granularity) {}
};

// For plain bytes.
class CMemoryBlock final : public CHeapBlock {
public:
    explicit CMemoryBlock(std::size_t granularity = 1) : CHeapBlock(granularity) {}
};

// For objects.
class CObjectBlock final : public CHeapBlock {
public:
    explicit CObjectBlock(std::size_t granularity = 1) : CHeapBlock(granularity) {}
};

// For arrays of pointers.
class CPointerBlock final : public CHeapBlock {
public:
    explicit CPointerBlock(std::size_t granularity = 1) : CHeapBlock(granularity) {}
};

} // namespace Kesto
