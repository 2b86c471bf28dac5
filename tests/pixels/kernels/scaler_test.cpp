// Walker, fills, grids, states and the pixmap scaler.
#include "pixels/kernels/pictures.h"
#include "pixels/kernels/scale.h"
#include "pixels/pix_walker.h"
#include "pixels/pixel_fill.h"
#include "pixels/pixmap_scaler.h"
#include "pixels/virtual_heap.h"
#include "pixels/virtual_pixmap.h"

#include <gtest/gtest.h>

using namespace Kesto;
using namespace Kesto::Testing;

namespace {

// Scales all at once, without a grid.
CPicture ScaledAtOnce(const CPicture& source, std::int32_t width, std::int32_t height)
{
    CPicture target(8, width, height, 1);
    const CPixView from = source.View();
    float columnScale = 1;
    float rowScale = 1;
    const ScaleTable columns = width < from.width   ? MakeReduceTable(width, from.width, 0, columnScale)
                               : width > from.width ? MakeEnlargeTable(width, from.width, 0)
                                                    : ScaleTable();
    const ScaleTable rows = height < from.height   ? MakeReduceTable(height, from.height, 0, rowScale)
                            : height > from.height ? MakeEnlargeTable(height, from.height, 0)
                                                   : ScaleTable();
    const auto mode = [](std::int32_t to, std::int32_t size) {
        return to < size ? ScaleMode::kReduce : to > size ? ScaleMode::kEnlarge : ScaleMode::kSame;
    };
    std::vector<double> scratch(Kernels::ScaleScratchBytes<std::uint8_t>(width) / sizeof(double) + 1);
    Kernels::ScalePlane<std::uint8_t>(
        Kernels::PlaneOf<std::uint8_t>(from, 0), Kernels::PlaneOf<std::uint8_t>(target.View(), 0),
        {mode(width, from.width), columns, 0, columnScale}, {mode(height, from.height), rows, 0, rowScale},
        reinterpret_cast<std::byte*>(scratch.data()));
    return target;
}

bool Stop(std::uint32_t, void*)
{
    return false;
}

bool Count(std::uint32_t count, void* userData)
{
    *static_cast<std::uint32_t*>(userData) += count;
    return true;
}

// A scaler over two pictures.
struct Scaling {
    Scaling(std::int32_t sourceWidth, std::int32_t sourceHeight, std::int32_t width, std::int32_t height)
        : fSource(8, sourceWidth, sourceHeight, 1, 5), fTarget(8, width, height, 1, 6)
    {
        fScaler.SetPixmaps(&fTarget.Pixmap(), &fSource.Pixmap());
    }
    CPicture fSource;
    CPicture fTarget;
    CPixmapScaler fScaler;
};

} // namespace

TEST(Walker, VisitsWhatAllRectanglesHave)
{
    CPicture source(8, 10, 10, 3);
    CPicture dest(8, 8, 8, 3);
    dest.Pixmap().SetOrigin(100, 100);
    std::vector<CPixView> seen;
    CPixWalker(source.Pixmap(), dest.Pixmap(), {4, 4, 9, 20}, {98, 101, 200, 200}, 1, 1)
        .Run([&](const CPixWalkContext& context) {
            seen = {context.fRead[0], context.fWrite[0]};
            return true;
        });
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].x, 6); // the target begins two columns into its rectangle
    EXPECT_EQ(seen[0].y, 4);
    EXPECT_EQ(seen[1].x, 100);
    EXPECT_EQ(seen[1].y, 101);
    EXPECT_EQ(seen[0].width, 3);
    EXPECT_EQ(seen[1].width, 3);
    EXPECT_EQ(seen[1].height, 6);
    EXPECT_EQ(seen[1].firstPlane, 1);
    EXPECT_EQ(seen[1].planeCount, 1);
}

TEST(Walker, EndsWhenTheFunctionSaysSo)
{
    CPicture picture(8, 4, 4, 1);
    const auto stop = [](const CPixWalkContext&) { return false; };
    EXPECT_FALSE(CPixWalker(picture.Pixmap(), {0, 0, 4, 4}, 0, -1).Run(stop));
    EXPECT_TRUE(CPixWalker(picture.Pixmap(), {4, 0, 8, 4}, 0, -1).Run(stop)); // nothing to visit
    EXPECT_TRUE(CPixWalker({}, {}, {}, {0, 0, 1, 1}, 0, -1).Run(stop));
}

TEST(PixelFill, SetsInvertsCopiesAndExchanges)
{
    CPicture a(16, 3, 2, 2);
    CPicture b(16, 3, 2, 2);
    const std::uint16_t values[] = {0x1234, 0x5678};
    Fill(a.Pixmap(), {-5, -5, 50, 50}, values, 0, -1);
    EXPECT_EQ(a.At<std::uint16_t>(2, 1, 1), 0x5678);
    const std::vector<std::uint8_t> before = b.Copied();
    Exchange(a.Pixmap(), b.Pixmap(), {0, 0, 3, 2}, {0, 0, 3, 2}, 0, -1);
    EXPECT_EQ(a.Copied(), before);
    EXPECT_EQ(b.At<std::uint16_t>(0, 0, 0), 0x1234);
    Copy(a.Pixmap(), b.Pixmap(), {0, 0, 1, 1}, {1, 1, 9, 9}, 0, 1);
    EXPECT_EQ(a.At<std::uint16_t>(0, 0, 0), 0x1234);
    Invert(b.Pixmap(), {1, 0, 2, 1}, 1, 1);
    EXPECT_EQ(b.At<std::uint16_t>(1, 0, 1), 0xA987);
    EXPECT_EQ(b.At<std::uint16_t>(0, 0, 1), 0x5678);
}

TEST(Grid, SplitsEvenlyAndGivesTheRestToTheLast)
{
    Scaling scaling(129, 300, 129, 300);
    const CPixmapScaler& grid = scaling.fScaler;
    ASSERT_EQ(grid.GetColumns(), 2);
    ASSERT_EQ(grid.GetRows(), 3);
    EXPECT_EQ(grid.GetCell(0, 0), (Rect{0, 0, 64, 100}));
    EXPECT_EQ(grid.GetCell(1, 2), (Rect{64, 200, 129, 300}));
    EXPECT_EQ(grid.GetColumn(63), 0);
    EXPECT_EQ(grid.GetColumn(64), 1);
    EXPECT_EQ(grid.GetColumn(1000), 1);
    EXPECT_EQ(grid.GetRow(-7), 0);
    EXPECT_TRUE(grid.GetCell(2, 0).IsEmpty());
}

TEST(Grid, CanStartWithAPartOfACell)
{
    CPixState grid;
    grid.SetGrid({10, 10, 100, 40}, {0, 0, 32, 32});
    ASSERT_EQ(grid.GetColumns(), 3);
    ASSERT_EQ(grid.GetRows(), 1);
    EXPECT_EQ(grid.GetCell(0, 0), (Rect{10, 10, 32, 40}));
    EXPECT_EQ(grid.GetCell(1, 0), (Rect{32, 10, 64, 40}));
    EXPECT_EQ(grid.GetCell(2, 0), (Rect{64, 10, 100, 40}));
    grid.SetOrigin(0, 0);
    EXPECT_EQ(grid.GetCell(1, 0), (Rect{22, 0, 54, 30}));
}

TEST(States, ChangeInTheCellsThatARectangleTouches)
{
    CPixState grid;
    grid.SetGrid({0, 0, 40, 40}, {0, 0, 10, 10});
    grid.SetStates({0, 0, 40, 40}, 5);
    grid.SubtractStates({9, 0, 11, 1}, 7);
    EXPECT_EQ(grid.GetState(0, 0), 0u);
    EXPECT_EQ(grid.GetState(1, 0), 0u);
    EXPECT_EQ(grid.GetState(2, 0), 5u);
    grid.CapStates({20, 0, 21, 1}, 2);
    grid.RaiseStates({0, 0, 21, 1}, 1);
    EXPECT_EQ(grid.GetState(0, 0), 1u);
    EXPECT_EQ(grid.GetState(2, 0), 2u);
    EXPECT_EQ(grid.GetState(9, 9), 0u);
    grid.SetGrid({0, 0, 40, 40}, {0, 0, 10, 10});
    EXPECT_EQ(grid.GetState(3, 3), 0u);
}

TEST(States, KeepChangedRectangles)
{
    CPixState grid;
    grid.SetTrackChanges(true);
    grid.SetGrid({0, 0, 20, 20}, {0, 0, 10, 10});
    EXPECT_TRUE(grid.GetChangedRect(0, 0).IsEmpty());
    grid.IntersectChangedRects({2, 3, 12, 5});
    EXPECT_EQ(grid.GetChangedRect(0, 0), (Rect{2, 3, 10, 5}));
    EXPECT_EQ(grid.GetChangedRect(1, 0), (Rect{10, 3, 12, 5}));
    grid.UniteChangedRects({0, 8, 3, 9});
    EXPECT_EQ(grid.GetChangedRect(0, 0), (Rect{0, 3, 10, 9}));
    grid.ClearChangedRects({0, 0, 1, 1});
    EXPECT_TRUE(grid.GetChangedRect(0, 0).IsEmpty());
    EXPECT_FALSE(grid.GetChangedRect(1, 0).IsEmpty());
}

TEST(PixmapScaler, StepsFollowTheRatio)
{
    const auto across = [](std::int32_t source, std::int32_t target) {
        Scaling scaling(source, 8, target, 8);
        EXPECT_EQ(scaling.fScaler.GetStepsDown(), 1);
        EXPECT_EQ(scaling.fScaler.GetStepCount(0, 0), static_cast<std::uint32_t>(scaling.fScaler.GetStepsAcross()));
        return scaling.fScaler.GetStepsAcross();
    };
    EXPECT_EQ(across(100, 100), 1);
    EXPECT_EQ(across(100, 200), 1);
    EXPECT_EQ(across(100, 99), 2);
    EXPECT_EQ(across(100, 50), 2);
    EXPECT_EQ(across(99, 33), 4);
    EXPECT_EQ(across(4096, 1), 128);
}

TEST(PixmapScaler, CellsGiveThePictureThatOneRunGives)
{
    const std::int32_t sizes[][4] = {{300, 200, 300, 200}, {300, 200, 150, 100}, {300, 200, 77, 61},
                                     {100, 50, 383, 270},  {500, 40, 130, 120},  {40, 500, 200, 129},
                                     {1, 1, 9, 9},         {600, 600, 1, 1},     {390, 10, 383, 10}};
    for (const auto& size : sizes) {
        Scaling scaling(size[0], size[1], size[2], size[3]);
        std::uint32_t done = 0;
        EXPECT_TRUE(scaling.fScaler.DoAll(done, nullptr, nullptr));
        EXPECT_EQ(done, scaling.fScaler.CountAllSteps());
        EXPECT_EQ(scaling.fTarget.Copied(), ScaledAtOnce(scaling.fSource, size[2], size[3]).Copied())
            << size[0] << " by " << size[1] << " to " << size[2] << " by " << size[3];
    }
}

TEST(PixmapScaler, StopsAndGoesOn)
{
    Scaling scaling(600, 600, 200, 200);
    CPixmapScaler& scaler = scaling.fScaler;
    std::uint32_t done = 0;
    EXPECT_FALSE(scaler.DoAll(done, Stop, nullptr));
    EXPECT_EQ(done, 1u);
    EXPECT_EQ(scaler.CountSteps(), 1u);
    EXPECT_EQ(scaler.DoFirstStep(), 1u);
    EXPECT_EQ(scaler.GetCellState(0, 0), 2u);
    EXPECT_EQ(scaler.DoCellQuietly(1, 1), scaler.GetStepCount(1, 1));
    std::uint32_t told = 0;
    EXPECT_TRUE(scaler.DoAll(done, Count, &told));
    EXPECT_EQ(done, told + 1);
    EXPECT_EQ(scaler.CountStepsLeft(), 0u);
    EXPECT_EQ(scaler.DoFirstStep(), 0u);
    EXPECT_EQ(scaling.fTarget.Copied(), ScaledAtOnce(scaling.fSource, 200, 200).Copied());
}

TEST(PixmapScaler, DoesAChangedRegionAgain)
{
    Scaling scaling(300, 300, 300, 300);
    CPixmapScaler& scaler = scaling.fScaler;
    std::uint32_t done = 0;
    scaler.DoAll(done, nullptr, nullptr);
    scaling.fSource.At(250, 10) ^= 0xFF;
    scaler.SubtractStates({250, 10, 251, 11}, 1);
    EXPECT_EQ(scaler.CountStepsLeft(), 1u);
    EXPECT_EQ(scaler.DoCellsQuietly(), 1u);
    EXPECT_EQ(scaling.fTarget.Copied(), scaling.fSource.Copied());
}

TEST(PixmapScaler, RefusesWhatItCannotScale)
{
    CPicture source(8, 20, 20, 1);
    CPicture target(8, 10, 10, 1);
    CPicture deep(16, 10, 10, 1);
    const std::vector<std::uint8_t> before = target.Copied();
    CPixmapScaler scaler;
    const auto stepsFor = [&](CPixmap* dest, const Rect& destRect, const Rect& sourceRect) {
        scaler.SetPixmaps(dest, &source.Pixmap(), destRect, sourceRect);
        return scaler.DoCellsQuietly();
    };
    EXPECT_EQ(stepsFor(&target.Pixmap(), {0, 0, 11, 10}, {0, 0, 20, 20}), 0u);
    EXPECT_EQ(stepsFor(&target.Pixmap(), {0, 0, 10, 10}, {-1, 0, 20, 20}), 0u);
    EXPECT_EQ(stepsFor(&target.Pixmap(), {0, 0, 0, 10}, {0, 0, 20, 20}), 0u);
    EXPECT_EQ(stepsFor(&deep.Pixmap(), {0, 0, 10, 10}, {0, 0, 20, 20}), 0u);
    EXPECT_EQ(stepsFor(nullptr, {0, 0, 10, 10}, {0, 0, 20, 20}), 0u);
    EXPECT_EQ(target.Copied(), before);
    scaler.Clear();
    EXPECT_EQ(scaler.CountAllSteps(), 0u);
    EXPECT_EQ(stepsFor(&target.Pixmap(), {0, 0, 10, 10}, {0, 0, 20, 20}), 4u);
}

TEST(PixmapScaler, ScalesTheChosenPlanesOfPartsAtAnyOrigin)
{
    CPicture source(16, 30, 30, 3);
    source.Pixmap().SetOrigin(-10, 50);
    CPicture target(16, 40, 40, 2, 9);
    target.Pixmap().SetOrigin(1000, 0);
    const std::uint16_t edge = target.At<std::uint16_t>(9, 9, 1);
    CPixmapScaler scaler;
    scaler.SetPixmaps(&target.Pixmap(), &source.Pixmap(), {1010, 10, 1040, 40}, {-10, 50, 20, 80}, 1, 1, 2, 1);
    scaler.DoCellsQuietly();
    EXPECT_EQ(target.At<std::uint16_t>(10, 10, 1), source.At<std::uint16_t>(0, 0, 2));
    EXPECT_EQ(target.At<std::uint16_t>(39, 39, 1), source.At<std::uint16_t>(29, 29, 2));
    EXPECT_EQ(target.At<std::uint16_t>(9, 9, 1), edge);
}

namespace {

// With a heap of their own.
class PagedPixmaps : public testing::Test {
protected:
    CVirtualHeap fHeap;
};

} // namespace

TEST_F(PagedPixmaps, AreFilledCopiedAndScaledLikeContiguousOnes)
{
    CPicture source(8, 300, 290, 2, 3);
    CVirtualPixmap paged(3, 300, 290, 2, 0, false, false, fHeap);
    Copy(paged, source.Pixmap(), paged.GetBounds(), source.Pixmap().GetBounds(), 0, -1);
    CPicture back(8, 300, 290, 2, 4);
    Copy(back.Pixmap(), paged, back.Pixmap().GetBounds(), paged.GetBounds(), 0, -1);
    EXPECT_EQ(back.Copied(), source.Copied());

    CVirtualPixmap small(3, 141, 99, 2, 0, false, false, fHeap);
    CPicture expected(8, 141, 99, 2, 5);
    CPixmapScaler scaler;
    scaler.SetPixmaps(&small, &paged);
    scaler.DoCellsQuietly();
    scaler.SetPixmaps(&expected.Pixmap(), &source.Pixmap());
    scaler.DoCellsQuietly();
    CPicture result(8, 141, 99, 2, 6);
    Copy(result.Pixmap(), small, result.Pixmap().GetBounds(), small.GetBounds(), 0, -1);
    EXPECT_EQ(result.Copied(), expected.Copied());

    const std::uint8_t values[] = {1, 2};
    Fill(paged, {100, 100, 250, 250}, values, 0, -1);
    Invert(paged, {100, 100, 101, 101}, 1, 1);
    Copy(back.Pixmap(), paged, back.Pixmap().GetBounds(), paged.GetBounds(), 0, -1);
    EXPECT_EQ(back.At(249, 249, 1), 2);
    EXPECT_EQ(back.At(100, 100, 1), 0xFD);
    EXPECT_EQ(back.At(250, 249, 1), source.At(250, 249, 1));
}
