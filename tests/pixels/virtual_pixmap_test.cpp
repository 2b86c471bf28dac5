// The arithmetic of tiles, over the real disk.
#include "pixels/tiles/virtual_pixmap.h"
#include "support/testing.h"

namespace {

using namespace Kesto;

TEST(TileShape, FollowsTheClassAndTheDepth)
{
    struct Case {
        std::uint8_t depth, code, sizeClass;
        std::int32_t width, height;
    };
    for (const Case& one :
         {Case{0, 0, 0, 64, 32}, Case{3, 4, 4, 64, 64}, Case{5, 15, 15, 2048, 1024},
          Case{5, 0, 0, 8, 8}, Case{4, 3, 3, 32, 32}, Case{3, 0, 0, 16, 16}, Case{3, 5, 5, 128, 64},
          // squares of 64 << r pixels
          Case{0, 0x80, 1, 64, 64}, Case{3, 0x80, 4, 64, 64}, Case{5, 0x84, 14, 1024, 1024},
          Case{4, 0x81, 7, 128, 128}}) {
        const TileShape shape = TileShape::FromCode(one.depth, one.code);
        EXPECT_EQ(shape.fClass, one.sizeClass);
        EXPECT_EQ(shape.fWidth, one.width) << int{one.depth} << " " << int{one.code};
        EXPECT_EQ(shape.fHeight, one.height);
    }
}

TEST(TileShape, AlwaysFillsItsClassAndRefusesUnknownCodes)
{
    for (std::uint8_t depth = 0; depth <= 5; ++depth)
        for (std::uint8_t code = 0; code < 16; ++code) {
            const TileShape shape = TileShape::FromCode(depth, code);
            EXPECT_EQ((std::int64_t{shape.fWidth} * shape.fHeight << depth) / 8,
                      std::int64_t{256} << code);
        }
    EXPECT_THROW(TileShape::FromCode(6, 0), std::logic_error);
    EXPECT_THROW(TileShape::FromCode(3, 16), std::logic_error);
    EXPECT_THROW(TileShape::FromCode(3, 0x85), std::logic_error);
}

TEST(TileGrid, CountsTilesAndStridesUpTo31Bits)
{
    const auto numbers = [](std::int32_t width, std::int32_t height, std::int32_t planes,
                            bool interleaved) {
        const TileGrid grid(TileShape::FromCode(3, 4), width, height, planes,
                            interleaved); // 64 by 64
        return std::array{
            grid.fTilesAcross,  grid.fTilesDown, static_cast<std::int32_t>(grid.fCount),
            grid.fColumnStride, grid.fRowStride, grid.fPlaneStride};
    };
    EXPECT_EQ(numbers(129, 64, 3, false), (std::array{3, 1, 9, 1, 3, 3}));
    EXPECT_EQ(numbers(128, 65, 3, true), (std::array{2, 2, 12, 3, 6, 1}));
    EXPECT_EQ(numbers(1, 64, 1, false), (std::array{1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(numbers(0, 64, 1, false)[2], 0);

    const TileShape shape = TileShape::FromCode(5, 0); // 8 by 8
    EXPECT_THROW(TileGrid(shape, 0x7fffffff, 0x7fffffff, 1, false), std::length_error);
    EXPECT_THROW(TileGrid(shape, 0x40000, 0x40000, 4, false), std::length_error);
    EXPECT_THROW(TileGrid(shape, -1, 5, 4, false), std::length_error);
    EXPECT_EQ(TileGrid(shape, 0x40000, 0x40000, 1, true).fCount, 0x40000000U);
}

class VirtualPixmap : public ::testing::Test {
protected:
    CVirtualHeap heap;
};

TEST_F(VirtualPixmap, AddressesPixelsByTile)
{
    CVirtualPixmap pixmap(4, 300, 200, 2, 0x80, false, false, heap); // 64 by 64 pixels of 16 bits
    pixmap.SetOrigin(-10, 1000);
    EXPECT_EQ(pixmap.GetBounds(), (PixelRect{-10, 1000, 290, 1200}));
    EXPECT_EQ(pixmap.GetPixelBytes(), 2);
    EXPECT_EQ(pixmap.GetRowBits(), 1024);
    EXPECT_EQ(pixmap.GetRowBytes(), 128);
    EXPECT_EQ((PixelPoint{pixmap.GetTileLeft(2), pixmap.GetTileTop(3)}), (PixelPoint{118, 1192}));
    // Tiles and the places in them round toward zero.
    const std::array<std::int32_t, 3> columns[] = {{117, 1, 63}, {118, 2, 0}, {-11, 0, -1}};
    for (const auto& [x, column, offset] : columns) {
        EXPECT_EQ(pixmap.GetTileColumn(x), column) << x;
        EXPECT_EQ(pixmap.GetOffsetInTileX(x), offset) << x;
    }
    EXPECT_EQ(pixmap.GetTileRow(1000 - 65), -1);
    EXPECT_EQ(pixmap.GetOffsetInTileY(1000 - 65), -1);
    EXPECT_EQ(pixmap.GetByteOffset(3, 2), 262);
    EXPECT_EQ(pixmap.GetBitOffset(3, 2), 2096);
    EXPECT_EQ(pixmap.GetTileIndex(4, 3, 1), 4U + 3 * 5 + 20);
    EXPECT_EQ(CVirtualPixmap(2, 1, 1, 1, 0, false, false, heap).GetPixelBytes(), 0);
}

TEST_F(VirtualPixmap, MakesTilesAtTheFirstLockAtOnceOrForANewSize)
{
    CVirtualPixmap pixmap(3, 128, 64, 1, 4, false, false, heap);
    void* pointer = nullptr;
    pixmap.LockTile(1, 0, 0, pointer, false);
    EXPECT_NE(pointer, nullptr);
    pixmap.UnlockTile(1, 0, 0, pointer, false, false);
    EXPECT_EQ(pointer, nullptr);
    pixmap.SetSize(128, 64);
    EXPECT_EQ(pixmap.GetTile(0, 0, 0), nullptr) << "the same size changes nothing";
    pixmap.SetSize(64, 192);
    EXPECT_NE(pixmap.GetTile(0, 2, 0), nullptr);
    EXPECT_EQ(pixmap.GetTileIndex(0, 2, 0), 2U);

    CVirtualPixmap eager(3, 128, 64, 1, 4, false, true, heap);
    CVirtualTile* const tile = eager.GetTile(0, 0, 0);
    EXPECT_NE(tile, nullptr);
    CVirtualTile* const former = pixmap.SetTile(0, 2, 0, tile);
    EXPECT_EQ(pixmap.GetTile(0, 2, 0), tile);
    EXPECT_EQ(eager.SetTile(0, 0, 0, former), tile);
    pixmap.Clear();
    EXPECT_TRUE(pixmap.GetBounds().IsEmpty());
    EXPECT_THROW(pixmap.GetTileIndex(0, 0, 0), std::logic_error);
}

TEST_F(VirtualPixmap, PagesToTheDiskAndBack)
{
    heap.SetBudget(3 << 14);
    CVirtualPixmap pixmap(5, 1024, 256, 1, 0x80, true, false, heap); // 64 tiles of 16 KiB
    for (int pass = 0; pass < 3; ++pass)
        for (std::int32_t i = 0; i < 64; ++i) {
            void* pointer = nullptr;
            pixmap.LockTile(i % 16, i / 16, 0, pointer, false);
            const std::span<std::int32_t> pixels(static_cast<std::int32_t*>(pointer), 64 * 64);
            ASSERT_TRUE(pass == 0 ||
                        (pixels.front() == i + pass - 1 && pixels.back() == i - pass + 1))
                << "tile " << i << " at pass " << pass;
            pixels.front() = i + pass;
            pixels.back() = i - pass;
            pixmap.UnlockTile(i % 16, i / 16, 0, pointer, true, false);
        }
    EXPECT_LE(heap.AllocatedBytes(), 3U << 14);
}

} // namespace
