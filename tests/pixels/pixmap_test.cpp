// The arithmetic of contiguous pixmaps and their views.
#include "pixels/memory_pixmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace {

using Kesto::CBasicPixmap;
using Kesto::CMemoryPixmap;
using Kesto::CPixView;
using Kesto::Rect;

TEST(RowBytes, ArePaddedToTheAlignment)
{
    struct Case {
        std::int32_t width, bits, alignment, bytes;
    };
    for (const Case& one : {Case{5, 8, 4, 8}, Case{9, 1, 1, 2}, Case{8, 1, 1, 1}, Case{0, 8, 4, 0}, Case{4, 8, 4, 4},
                            Case{3, 16, 4, 8}, Case{5, 32, 4, 20}, Case{1, 1, 64, 64}, Case{7, 24, 3, 21},
                            Case{-5, 8, 4, -4}, Case{-1, 1, 4, 0}, Case{0x7ffffffc / 4, 32, 4, 0x7ffffffc}})
        EXPECT_EQ(CBasicPixmap::ComputeRowBytes(one.width, one.bits, one.alignment), one.bytes)
            << one.width << " of " << one.bits << " by " << one.alignment;
}

TEST(RowBytes, BeyondTheirRangeAreRefused)
{
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(0x20000000, 32, 4), std::length_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(0x7fffffff, 8, 4), std::length_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(1, 8, 0), std::logic_error);
    EXPECT_THROW(CBasicPixmap::ComputeRowBytes(1, 8, -4), std::logic_error);
}

TEST(MemoryPixmap, AnswersForItsOneTile)
{
    CMemoryPixmap pixmap({-3, 10, 7, 14}, 16, 3, 4, 0);
    EXPECT_EQ(pixmap.GetBounds(), (Rect{-3, 10, 7, 14}));
    EXPECT_EQ(pixmap.GetSize(), (Kesto::Point{10, 4}));
    EXPECT_EQ(pixmap.GetPixelBytes(), 2);
    EXPECT_EQ(pixmap.GetRowBits(), 160);
    EXPECT_EQ(pixmap.GetPlaneBytes(), 80);
    EXPECT_EQ(pixmap.GetPlaneBits(), 640);
    EXPECT_EQ(pixmap.GetTileWidth(), 10);
    EXPECT_EQ(pixmap.GetTileHeight(), 4);
    EXPECT_EQ(pixmap.GetTileLeft(9), -3);
    EXPECT_EQ(pixmap.GetTileTop(9), 10);
    EXPECT_EQ(pixmap.GetTileColumn(100), 0);
    EXPECT_EQ(pixmap.GetOffsetInTileX(-1), 2);
    EXPECT_EQ(pixmap.GetOffsetInTileY(13), 3);
    EXPECT_EQ(pixmap.GetByteOffset(3, 2), 46);
    EXPECT_EQ(pixmap.GetBitOffset(3, 2), 368);
    EXPECT_EQ(pixmap.GetPixelCount(), 40);
    EXPECT_EQ(CMemoryPixmap(16, 10, 4, 1, 4, 0).GetPlaneBytes(), 0);
    EXPECT_EQ(CMemoryPixmap(4, 10, 4, 1, 4, 0).GetByteOffset(3, 2), 16);
}

TEST(MemoryPixmap, KeepsItsPixelsWhenTheSizeStays)
{
    CMemoryPixmap pixmap(8, 4, 4, 1, 4, 0);
    const std::uint8_t* const base = pixmap.GetBaseAddress();
    std::memset(pixmap.GetBaseAddress(), 7, 16);
    pixmap.SetSize(4, 4);
    EXPECT_EQ(pixmap.GetBaseAddress(), base);
    pixmap.SetBounds({1, 1, 5, 5});
    EXPECT_EQ(pixmap.GetBaseAddress(), base);
    EXPECT_EQ(pixmap.GetBaseAddress()[15], 7);
    EXPECT_EQ(pixmap.GetOrigin(), (Kesto::Point{1, 1}));
}

TEST(MemoryPixmap, KeepsItsCapacityWithAStorageAlignment)
{
    CMemoryPixmap pixmap(8, 0, 0, 40, 30, 1, 4, 1);
    const std::uint8_t* const base = pixmap.GetBaseAddress();
    std::memset(pixmap.GetBaseAddress(), 9, 1200);
    pixmap.SetSize(4, 4);
    pixmap.Clear();
    EXPECT_EQ(pixmap.GetBaseAddress(), base);
    pixmap.SetSize(40, 30);
    EXPECT_EQ(pixmap.GetBaseAddress(), base);
    EXPECT_EQ(pixmap.GetBaseAddress()[1199], 9);
    pixmap.ReleaseStorage();
    EXPECT_EQ(pixmap.GetBaseAddress(), nullptr);
    CMemoryPixmap exact(8, 40, 30, 1, 4, 0);
    exact.Clear();
    EXPECT_EQ(exact.GetBaseAddress(), nullptr);
}

TEST(MemoryPixmap, CopiesRecordAndPixels)
{
    CMemoryPixmap pixmap(8, 5, 6, 4, 2, 2, 4, 16);
    std::memset(pixmap.GetBaseAddress(), 3, 16);
    const CMemoryPixmap copy(pixmap);
    std::memset(pixmap.GetBaseAddress(), 4, 16);
    EXPECT_EQ(copy.GetBounds(), (Rect{5, 6, 9, 8}));
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
    EXPECT_EQ(pixmap.GetSize(), (Kesto::Point{4, 4}));
    EXPECT_EQ(pixmap.GetBaseAddress()[47], 5);
    EXPECT_THROW(pixmap.ReserveStorage(~std::uint64_t{0}), std::bad_alloc);
    EXPECT_THROW(CMemoryPixmap(8, 1, 1, -1, 4, 0), std::length_error);
}

TEST(MemoryPixmap, ErasesWholeBytesUpTo32Bits)
{
    for (const auto& [bits, first] : {std::pair{8, 0}, {16, 0}, {32, 0}, {64, 7}, {24, 7}, {1, 7}}) {
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
    CMemoryPixmap pixmap{8, 100, 200, 10, 6, 3, 4, 0};
    CPixView view;

    std::ptrdiff_t OffsetOf(std::int32_t plane) const { return view.planePointers[plane] - pixmap.GetBaseAddress(); }
};

TEST_F(View, OfTheWholePixmap)
{
    pixmap.GetView(view);
    EXPECT_EQ(view.x, 100);
    EXPECT_EQ(view.y, 200);
    EXPECT_EQ(view.width, 10);
    EXPECT_EQ(view.height, 6);
    EXPECT_EQ(view.rowBytes, 12);
    EXPECT_EQ(view.pixelBits, 8);
    EXPECT_EQ(view.planeCount, 3);
    EXPECT_EQ(OffsetOf(0), 0);
    EXPECT_EQ(OffsetOf(2), 144);
}

TEST_F(View, OfALocalPart)
{
    pixmap.GetView(view, 2, 1, 3, 0, 1, -1);
    EXPECT_EQ(view.x, 102);
    EXPECT_EQ(view.y, 201);
    EXPECT_EQ(view.width, 3);
    EXPECT_EQ(view.height, 5) << "to the bottom edge";
    EXPECT_EQ(view.firstPlane, 1);
    EXPECT_EQ(view.planeCount, 2);
    EXPECT_EQ(OffsetOf(0), 72 + 12 + 2);
    pixmap.GetView(view, 2, 1, 30, 40, 1, 1);
    EXPECT_EQ(view.width, 30) << "not clipped";
    EXPECT_EQ(view.height, 40);
}

TEST_F(View, BringsPlanesIntoRange)
{
    struct Case {
        std::int32_t first, count, firstGot, countGot;
    };
    for (const Case& one : {Case{-5, -1, 0, 3}, Case{9, -1, 2, 1}, Case{9, 5, 2, 1}, Case{1, 7, 1, 2}, Case{0, 2, 0, 2},
                            Case{0, 0, 0, 0}, Case{9, 0, 0, 0}}) {
        pixmap.GetView(view, 0, 0, 0, 0, one.first, one.count);
        EXPECT_EQ(view.firstPlane, one.firstGot) << one.first << ", " << one.count;
        EXPECT_EQ(view.planeCount, one.countGot) << one.first << ", " << one.count;
        EXPECT_EQ(view.planePointers == nullptr, one.countGot == 0);
    }
}

TEST_F(View, IsClippedToTheBoundsForAGlobalRectangle)
{
    pixmap.GetView(view, Rect{90, 203, 104, 900}, 0, 1);
    EXPECT_EQ(view.x, 100);
    EXPECT_EQ(view.y, 203);
    EXPECT_EQ(view.width, 4);
    EXPECT_EQ(view.height, 3);
    EXPECT_EQ(OffsetOf(0), 36);
    pixmap.GetView(view, Rect{0, 0, 100, 900}, 0, 1);
    EXPECT_EQ(view.planePointers, nullptr);
    EXPECT_EQ(view.width, 0);
}

TEST_F(View, OfBitsCountsThemFromAByte)
{
    const CMemoryPixmap bits(1, 20, 2, 1, 4, 0);
    bits.GetView(view, 3, 0, 0, 0, 0, -1);
    EXPECT_EQ(view.bitOffset, 3);
    EXPECT_EQ(view.planePointers[0], bits.GetBaseAddress());
    bits.GetView(view, 11, 1, 0, 0, 0, -1);
    EXPECT_EQ(view.bitOffset, 3);
    EXPECT_EQ(view.planePointers[0], bits.GetBaseAddress() + 5);

    view.MoveTo({2, 0, 10, 1}); // nine bits to the left
    EXPECT_EQ(view.bitOffset, 2);
    EXPECT_EQ(view.planePointers[0], bits.GetBaseAddress());
    view.MoveTo({17, 1, 20, 2});
    EXPECT_EQ(view.bitOffset, 1);
    EXPECT_EQ(view.planePointers[0], bits.GetBaseAddress() + 6);
    EXPECT_EQ(view.x, 17);
    EXPECT_EQ(view.width, 3);
}

TEST_F(View, OfNothingIsEmpty)
{
    pixmap.GetView(view);
    CMemoryPixmap(8, 4, 4, 0, 4, 0).GetView(view);
    EXPECT_EQ(view.planePointers, nullptr);
    EXPECT_EQ(view.rowBytes, 0);
    pixmap.ReleaseStorage();
    pixmap.GetView(view);
    EXPECT_EQ(view.planeCount, 0) << "no storage";
    CMemoryPixmap empty(8, 0, 4, 1, 4, 0);
    empty.GetView(view);
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
    EXPECT_TRUE(std::equal(view.planePointers.get(), view.planePointers.get() + 3, copy.planePointers.get()));
}

} // namespace
