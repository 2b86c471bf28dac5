// The arithmetic of contiguous pixmaps and their views.
#include "pixels/pixmaps/memory_pixmap.h"
#include "support/testing.h"

#include <new>

namespace {

using Kesto::CBasicPixmap;
using Kesto::CMemoryPixmap;
using Kesto::CPixView;
using Kesto::PixelPoint;
using Kesto::PixelRect;

TEST(RowBytes, ArePaddedToTheAlignment)
{
    struct Case {
        std::int32_t width, bits, alignment, bytes;
    };
    for (const Case& one :
         {Case{5, 8, 4, 8}, Case{9, 1, 1, 2}, Case{8, 1, 1, 1}, Case{0, 8, 4, 0}, Case{4, 8, 4, 4},
          Case{3, 16, 4, 8}, Case{5, 32, 4, 20}, Case{1, 1, 64, 64}, Case{7, 24, 3, 21},
          Case{-5, 8, 4, -4}, Case{-1, 1, 4, 0}, Case{0x7ffffffc / 4, 32, 4, 0x7ffffffc}})
        EXPECT_EQ(CBasicPixmap::ComputeRowBytes(one.width, one.bits, one.alignment), one.bytes)
            << one.width << " of " << one.bits << " by " << one.alignment;
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(0x20000000, 32, 4), std::length_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(0x7fffffff, 8, 4), std::length_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(1, 8, 0), std::logic_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(1, 8, -4), std::logic_error);
}

TEST(MemoryPixmap, AnswersForItsOneTile)
{
    const CMemoryPixmap pixmap({-3, 10, 7, 14}, 16, 3, 4, 0);
    EXPECT_EQ(pixmap.GetBounds(), (PixelRect{-3, 10, 7, 14}));
    EXPECT_EQ(pixmap.GetPixelBytes(), 2);
    EXPECT_EQ(pixmap.GetRowBits(), 160);
    EXPECT_EQ(pixmap.GetPlaneBits(), 640);
    EXPECT_EQ((PixelPoint{pixmap.GetTileWidth(), pixmap.GetTileHeight()}), pixmap.GetSize());
    EXPECT_EQ((PixelPoint{pixmap.GetTileLeft(9), pixmap.GetTileTop(9)}), (PixelPoint{-3, 10}));
    EXPECT_EQ((PixelPoint{pixmap.GetTileColumn(100), pixmap.GetTileRow(100)}), (PixelPoint{0, 0}));
    EXPECT_EQ((PixelPoint{pixmap.GetOffsetInTileX(-1), pixmap.GetOffsetInTileY(13)}),
              (PixelPoint{2, 3}));
    EXPECT_EQ(pixmap.GetByteOffset(3, 2), 46);
    EXPECT_EQ(pixmap.GetBitOffset(3, 2), 368);
    EXPECT_EQ(pixmap.GetPixelCount(), 40);
    EXPECT_EQ(CMemoryPixmap(16, 10, 4, 1, 4, 0).GetPlaneBytes(), 0);
    EXPECT_EQ(CMemoryPixmap(4, 10, 4, 1, 4, 0).GetByteOffset(3, 2), 16);
}

TEST(MemoryPixmap, KeepsItsPixelsWhenTheSizeStaysOrTheCapacityDoes)
{
    CMemoryPixmap same(8, 4, 4, 1, 4, 0);
    const std::uint8_t* base = same.GetBaseAddress();
    std::memset(same.GetBaseAddress(), 7, 16);
    same.SetSize(4, 4);
    same.SetBounds({1, 1, 5, 5});
    EXPECT_EQ(same.GetBaseAddress(), base);
    EXPECT_EQ(same.GetBaseAddress()[15], 7);
    EXPECT_EQ(same.GetOrigin(), (PixelPoint{1, 1}));
    same.Clear();
    EXPECT_EQ(same.GetBaseAddress(), nullptr);

    CMemoryPixmap aligned(8, 0, 0, 40, 30, 1, 4, 1);
    base = aligned.GetBaseAddress();
    std::memset(aligned.GetBaseAddress(), 9, 1200);
    aligned.SetSize(4, 4);
    aligned.Clear();
    EXPECT_EQ(aligned.GetBaseAddress(), base);
    aligned.SetSize(40, 30);
    EXPECT_EQ(aligned.GetBaseAddress(), base);
    EXPECT_EQ(aligned.GetBaseAddress()[1199], 9);
    aligned.ReleaseStorage();
    EXPECT_EQ(aligned.GetBaseAddress(), nullptr);
}

TEST(MemoryPixmap, CopiesRecordAndPixels)
{
    CMemoryPixmap pixmap(8, 5, 6, 4, 2, 2, 4, 16);
    std::memset(pixmap.GetBaseAddress(), 3, 16);
    const CMemoryPixmap copy(pixmap);
    std::memset(pixmap.GetBaseAddress(), 4, 16);
    EXPECT_EQ(copy.GetBounds(), (PixelRect{5, 6, 9, 8}));
    EXPECT_EQ(copy.GetBaseAddress()[15], 3);
    CMemoryPixmap assigned(32, 1, 4, 0);
    EXPECT_EQ(assigned.GetBaseAddress(), nullptr) << "the record alone";
    assigned = copy;
    EXPECT_EQ(assigned.GetPlaneCount(), 2);
    EXPECT_EQ(assigned.GetBaseAddress()[15], 3);
}

TEST(MemoryPixmap, IsAsBeforeAfterASizeThatCannotBe)
{
    CMemoryPixmap pixmap(8, 4, 4, 3, 4, 0);
    std::memset(pixmap.GetBaseAddress(), 5, 48);
    EXPECT_THROW(pixmap.SetSize(0x10000, 0x10000), std::length_error);
    EXPECT_THROW(pixmap.SetSize(-400, 4), std::length_error);
    EXPECT_EQ(pixmap.GetSize(), (PixelPoint{4, 4}));
    EXPECT_EQ(pixmap.GetBaseAddress()[47], 5);
    EXPECT_THROW(pixmap.ReserveStorage(~std::uint64_t{0}), std::bad_alloc);
    EXPECT_THROW(CMemoryPixmap(8, 1, 1, -1, 4, 0), std::length_error);
}

TEST(MemoryPixmap, ErasesWholeBytesUpTo32Bits)
{
    for (const auto& [bits, first] :
         {std::pair{8, 0}, {16, 0}, {32, 0}, {64, 7}, {24, 7}, {1, 7}}) {
        CMemoryPixmap pixmap(bits, 8, 3, 2, 4, 0);
        const auto bytes = static_cast<std::size_t>(pixmap.GetRowBytes()) * 6;
        std::memset(pixmap.GetBaseAddress(), 7, bytes);
        pixmap.Erase();
        EXPECT_EQ(pixmap.GetBaseAddress()[0], first) << bits;
        EXPECT_EQ(pixmap.GetBaseAddress()[bytes - 1], bits == 1 ? 7 : first) << bits;
    }
}

class View : public ::testing::Test {
protected:
    // "x,y width*height planes first+count at the first one's byte.bit"
    std::string Text(const CBasicPixmap& of) const
    {
        if (view.planeCount == 0)
            return view.planePointers == nullptr && view.rowBytes == 0 && view.width == 0
                       ? "nothing"
                       : "half reset";
        const auto pair = [](std::int64_t a, char between, std::int64_t b) {
            return std::to_string(a) + between + std::to_string(b) + ' ';
        };
        return pair(view.x, ',', view.y) + pair(view.width, '*', view.height) + "planes " +
               pair(view.firstPlane, '+', view.planeCount) + "at " +
               pair(view.planePointers[0] - of.GetBaseAddress(), '.', view.bitOffset);
    }

    std::string Part(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                     std::int32_t first, std::int32_t count)
    {
        pixmap.GetView(view, x, y, width, height, first, count);
        return Text(pixmap);
    }

    std::string Part(const PixelRect& rect)
    {
        pixmap.GetView(view, rect, 0, 1);
        return Text(pixmap);
    }

    CMemoryPixmap pixmap{8, 100, 200, 10, 6, 3, 4, 0};
    CMemoryPixmap bits{1, 20, 2, 1, 4, 0};
    CPixView view;
};

TEST_F(View, OfAPartOrAllAndOfPlanesInRange)
{
    EXPECT_EQ(Part(0, 0, 0, 0, 0, -1), "100,200 10*6 planes 0+3 at 0.0 ");
    EXPECT_EQ(view.rowBytes, 12);
    EXPECT_EQ(view.pixelBits, 8);
    EXPECT_EQ(view.planePointers[2] - view.planePointers[0], 144);
    EXPECT_EQ(Part(2, 1, 3, 0, 1, -1), "102,201 3*5 planes 1+2 at 86.0 ") << "to the bottom edge";
    EXPECT_EQ(Part(2, 1, 30, 40, 1, 1), "102,201 30*40 planes 1+1 at 86.0 ") << "not clipped";

    EXPECT_EQ(Part(0, 0, 0, 0, -5, -1), "100,200 10*6 planes 0+3 at 0.0 ");
    for (const std::int32_t count : {-1, 5})
        EXPECT_EQ(Part(0, 0, 0, 0, 9, count), "100,200 10*6 planes 2+1 at 144.0 ") << count;
    EXPECT_EQ(Part(0, 0, 0, 0, 1, 7), "100,200 10*6 planes 1+2 at 72.0 ");
    EXPECT_EQ(Part(0, 0, 0, 0, 0, 2), "100,200 10*6 planes 0+2 at 0.0 ");
    for (const std::int32_t first : {0, 9})
        EXPECT_EQ(Part(0, 0, 0, 0, first, 0), "nothing") << first;

    EXPECT_EQ(Part({90, 203, 104, 900}), "100,203 4*3 planes 0+1 at 36.0 ")
        << "clipped to the bounds";
    EXPECT_EQ(Part({0, 0, 100, 900}), "nothing");
}

TEST_F(View, OfBitsCountsThemFromAByte)
{
    bits.GetView(view, 3, 0, 0, 0, 0, -1);
    EXPECT_EQ(Text(bits), "3,0 17*2 planes 0+1 at 0.3 ");
    bits.GetView(view, 11, 1, 0, 0, 0, -1);
    EXPECT_EQ(Text(bits), "11,1 9*1 planes 0+1 at 5.3 ");
    view.MoveTo({2, 0, 10, 1}); // nine bits to the left
    EXPECT_EQ(Text(bits), "2,0 8*1 planes 0+1 at 0.2 ");
    view.MoveTo({17, 1, 20, 2});
    EXPECT_EQ(Text(bits), "17,1 3*1 planes 0+1 at 6.1 ");
}

TEST_F(View, OfNothingIsEmpty)
{
    pixmap.GetView(view);
    CMemoryPixmap(8, 4, 4, 0, 4, 0).GetView(view);
    EXPECT_EQ(Text(pixmap), "nothing");
    pixmap.ReleaseStorage();
    EXPECT_EQ(Part(0, 0, 0, 0, 0, -1), "nothing");
    CMemoryPixmap(8, 0, 4, 1, 4, 0).GetView(view);
    EXPECT_EQ(view.width, 0);
    EXPECT_EQ(view.planeCount, 1);
}

TEST_F(View, HasRoomForPlanesInGroupsOfFour)
{
    view.SetPlanes(0, 3);
    const auto* const array = view.planePointers.get();
    view.planePointers[1] = pixmap.GetBaseAddress();
    view.SetPlanes(2, 4);
    EXPECT_EQ(view.planePointers.get(), array);
    EXPECT_EQ(view.planePointers[1], nullptr);
    view.SetPlanes(0, -7);
    EXPECT_EQ(view.planeCount, 0);
    EXPECT_EQ(view.planePointers, nullptr);
    pixmap.GetView(view);
    const CPixView copy = view;
    EXPECT_NE(copy.planePointers, view.planePointers);
    EXPECT_TRUE(std::equal(view.planePointers.get(), view.planePointers.get() + 3,
                           copy.planePointers.get()));
}

} // namespace
