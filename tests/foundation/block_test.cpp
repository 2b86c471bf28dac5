#include "foundation/block.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <tuple>
#include <vector>

namespace Kesto {
namespace {

using testing::Each;
using testing::ElementsAre;

// Notes what is asked of its memory.
class CNotingBlock final : public CHeapBlock {
public:
    using Call = std::tuple<std::size_t, std::size_t, bool>;

    explicit CNotingBlock(std::size_t granularity) : CHeapBlock(granularity) {}

    void Reallocate(std::size_t newAllocated, std::size_t oldAllocated, bool zeroed) override
    {
        fCalls.emplace_back(newAllocated, oldAllocated, zeroed);
        CHeapBlock::Reallocate(newAllocated, oldAllocated, zeroed);
    }

    std::vector<Call> fCalls;
};

using Call = CNotingBlock::Call;

TEST(Block, TakesMemoryInMultiplesOfItsGranularity)
{
    CNotingBlock block(16);
    block.SetSize(1, false);
    block.SetSize(16, true);
    block.SetSize(17, true);
    block.SetSize(32);
    block.SetSize(3);
    EXPECT_THAT(block.fCalls, ElementsAre(Call(16, 0, false), Call(32, 16, true), Call(16, 32, false)));
    EXPECT_EQ(block.GetSize(), 3u);
}

TEST(Block, OfGranularityZeroOrOneTakesTheExactSize)
{
    for (std::size_t granularity : {0, 1}) {
        CNotingBlock block(granularity);
        block.SetSize(5);
        block.SetSize(5);
        block.SetSize(6);
        EXPECT_THAT(block.fCalls, ElementsAre(Call(5, 0, false), Call(6, 5, false)));
    }
}

TEST(Block, HoldsNoMemoryAtSizeZero)
{
    CNotingBlock block(8);
    block.SetSize(0);
    EXPECT_TRUE(block.fCalls.empty());
    block.SetSize(9);
    block.SetSize(0);
    EXPECT_THAT(block.fCalls, ElementsAre(Call(16, 0, false), Call(0, 16, false)));
    EXPECT_EQ(block.Data(), nullptr);
    EXPECT_EQ(block.GetSize(), 0u);
}

template <class Block>
class BlockKind : public testing::Test {
};
using BlockKinds = testing::Types<CMemoryBlock, CObjectBlock, CPointerBlock>;
TYPED_TEST_SUITE(BlockKind, BlockKinds);

TYPED_TEST(BlockKind, KeepsItsBytesAndZeroesWhatItGains)
{
    TypeParam block(4);
    block.SetSize(4);
    std::ranges::fill(block.Bytes(), std::byte{7});
    block.SetSize(4000, true);
    EXPECT_THAT(block.Bytes().first(4), Each(std::byte{7}));
    EXPECT_THAT(block.Bytes().subspan(4), Each(std::byte{0}));
    block.Free();
    EXPECT_EQ(block.GetSize(), 0u);
}

TYPED_TEST(BlockKind, StaysWholeWhenMemoryIsShort)
{
    for (std::size_t tooLarge : {SIZE_MAX, SIZE_MAX - 4095, SIZE_MAX / 2 + 1}) {
        TypeParam block(4096);
        block.SetSize(10, true);
        EXPECT_THROW(block.SetSize(tooLarge, true), std::bad_alloc);
        EXPECT_EQ(block.GetSize(), 10u);
        EXPECT_THAT(block.Bytes(), Each(std::byte{0}));
    }
}

} // namespace
} // namespace Kesto
