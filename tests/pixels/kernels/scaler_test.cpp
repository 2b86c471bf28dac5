// Walker, fills, grids, states and the pixmap scaler.
#include "pixels/kernels/scaled.h"
#include "pixels/operations/pix_walker.h"
#include "pixels/operations/pixel_fill.h"
#include "pixels/operations/pixmap_scaler.h"
#include "pixels/tiles/virtual_heap.h"
#include "pixels/tiles/virtual_pixmap.h"
#include "support/testing.h"

using namespace Kesto;
using namespace Kesto::Testing;

namespace {

// A scaler over two pictures.
struct Scaling {
    Scaling(std::int32_t sourceWidth, std::int32_t sourceHeight, std::int32_t width,
            std::int32_t height)
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
    CPixView read;
    CPixView written;
    CPixWalker(source.Pixmap(), dest.Pixmap(), {4, 4, 9, 20}, {98, 101, 200, 200}, 1, 1)
        .Run([&](const CPixWalkContext& context) {
            read = context.fRead[0];
            written = context.fWrite[0];
            return true;
        });
    const auto numbers = [](const CPixView& view) {
        return std::array{view.x,      view.y,          view.width,
                          view.height, view.firstPlane, view.planeCount};
    };
    EXPECT_EQ(numbers(read), (std::array{6, 4, 3, 6, 1, 1}))
        << "the target begins two columns into its rectangle";
    EXPECT_EQ(numbers(written), (std::array{100, 101, 3, 6, 1, 1}));
}

// As wide as 32 bits allow, and with the pixmap 32 bits away from the rectangle's corner.
TEST(Walker, VisitsRectanglesThatAreWiderThan31Bits)
{
    CPicture picture(8, 5, 4, 1);
    CPicture far(8, 5, 4, 1);
    far.Pixmap().SetOrigin(INT32_MAX - 5, INT32_MAX - 4);
    const PixelRect everything{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
    for (CPicture* one : {&picture, &far}) {
        SCOPED_TRACE(one == &far ? "far from the corner" : "at the origin");
        const std::uint8_t value = 9;
        Fill(one->Pixmap(), everything, &value, 0, -1);
        EXPECT_EQ(one->Copied(), std::vector<std::uint8_t>(20, 9));
    }
}

TEST(Walker, EndsWithPixmapsThatShrinkMeanwhileAndKeepsNoLocks)
{
    const auto walk = [](CPixmap& pixmap, PixelPoint newSize) {
        CPixWalker(pixmap, pixmap.GetBounds(), 0, -1).Run([&](const CPixWalkContext&) {
            pixmap.SetSize(newSize);
            return true;
        });
    };
    CVirtualHeap heap;
    for (const PixelPoint newSize : {PixelPoint{1, 1}, {0, 0}, {300, 100}}) {
        SCOPED_TRACE(newSize.x);
        CVirtualPixmap paged(3, 200, 100, 2, 4, true, false, heap);
        CPicture picture(8, 200, 100, 2);
        for (CPixmap* pixmap :
             {static_cast<CPixmap*>(&paged), static_cast<CPixmap*>(&picture.Pixmap())})
            if (newSize.x < 200)
                EXPECT_THROW(walk(*pixmap, newSize), std::logic_error)
                    << (pixmap == &paged ? "paged" : "contiguous");
            else
                walk(*pixmap, newSize);
        for (std::uint32_t i = 0; i < paged.Tiles().GetCount(); ++i)
            EXPECT_EQ(paged.Tiles().GetTile(i)->fLockCount, 0) << i;
    }
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
    ASSERT_EQ((std::array{grid.GetColumns(), grid.GetRows()}), (std::array{2, 3}));
    EXPECT_EQ(grid.GetCell(0, 0), (PixelRect{0, 0, 64, 100}));
    EXPECT_EQ(grid.GetCell(1, 2), (PixelRect{64, 200, 129, 300}));
    EXPECT_TRUE(grid.GetCell(2, 0).IsEmpty());
    for (const auto& [x, column] : {std::pair{63, 0}, {64, 1}, {1000, 1}, {-7, 0}})
        EXPECT_EQ(grid.GetColumn(x), column) << x;
    EXPECT_EQ(grid.GetRow(-7), 0);
}

TEST(Grid, KeepsTo31BitsAndFindsPlacesFartherAway)
{
    constexpr std::int32_t kLeast = INT32_MIN;
    constexpr std::int32_t kMost = INT32_MAX;
    CPixState grid;
    grid.SetGrid({kMost - 40, kMost - 40, kMost, kMost}, {0, kMost - 40, kMost, kMost - 30});
    EXPECT_EQ(grid.GetCell(0, 0), (PixelRect{kMost - 40, kMost - 40, kMost, kMost - 30}));
    EXPECT_EQ(grid.GetRow(kLeast), 0);
    grid.SetOrigin(kLeast, kLeast);
    EXPECT_EQ(grid.GetRow(kMost), grid.GetRows() - 1);
    const PixelRect before = grid.GetBounds();
    EXPECT_THROW(grid.SetOrigin(kMost - 39, 0), std::length_error);
    EXPECT_THROW(grid.SetGrid({-2, 0, kMost, 9}, {0, 0, 1, 1}), std::length_error);
    EXPECT_EQ(grid.GetBounds(), before);
}

TEST(Grid, CanStartWithAPartOfACell)
{
    CPixState grid;
    grid.SetGrid({10, 10, 100, 40}, {0, 0, 32, 32});
    ASSERT_EQ((std::array{grid.GetColumns(), grid.GetRows()}), (std::array{3, 1}));
    const PixelRect cells[] = {{10, 10, 32, 40}, {32, 10, 64, 40}, {64, 10, 100, 40}};
    for (std::int32_t i = 0; i < 3; ++i)
        EXPECT_EQ(grid.GetCell(i, 0), cells[i]) << i;
    grid.SetOrigin(0, 0);
    EXPECT_EQ(grid.GetCell(1, 0), (PixelRect{22, 0, 54, 30}));
}

TEST(States, ChangeInTheCellsThatARectangleTouches)
{
    CPixState grid;
    const auto firstStates = [&grid] {
        return std::array{grid.GetState(0, 0), grid.GetState(1, 0), grid.GetState(2, 0)};
    };
    grid.SetGrid({0, 0, 40, 40}, {0, 0, 10, 10});
    grid.SetStates({0, 0, 40, 40}, 5);
    grid.SubtractStates({9, 0, 11, 10}, 7);
    EXPECT_EQ(grid.GetState(1, 1), 5u);
    EXPECT_EQ(firstStates(), (std::array{0u, 0u, 5u}));
    grid.CapStates({20, 0, 21, 1}, 2);
    grid.RaiseStates({0, 0, 21, 1}, 1);
    EXPECT_EQ(firstStates(), (std::array{1u, 1u, 2u}));
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
    EXPECT_EQ(grid.GetChangedRect(0, 0), (PixelRect{2, 3, 10, 5}));
    EXPECT_EQ(grid.GetChangedRect(1, 0), (PixelRect{10, 3, 12, 5}));
    grid.UniteChangedRects({0, 8, 3, 9});
    EXPECT_EQ(grid.GetChangedRect(0, 0), (PixelRect{0, 3, 10, 9}));
    grid.ClearChangedRects({0, 0, 1, 1});
    EXPECT_TRUE(grid.GetChangedRect(0, 0).IsEmpty());
    EXPECT_FALSE(grid.GetChangedRect(1, 0).IsEmpty());
}

TEST(PixmapScaler, StepsFollowTheRatio)
{
    const std::array<std::int32_t, 3> cases[] = {{100, 100, 1}, {100, 200, 1}, {100, 99, 2},
                                                 {100, 50, 2},  {99, 33, 4},   {4096, 1, 128}};
    for (const auto& [source, target, steps] : cases) {
        Scaling scaling(source, 8, target, 8);
        EXPECT_EQ(scaling.fScaler.GetStepsAcross(), steps) << source << " to " << target;
        EXPECT_EQ(scaling.fScaler.GetStepsDown(), 1);
        EXPECT_EQ(scaling.fScaler.GetStepCount(0, 0), static_cast<std::uint32_t>(steps));
    }
}

TEST(PixmapScaler, CellsGiveThePictureThatOneRunGives)
{
    const std::int32_t sizes[][4] = {
        {300, 200, 300, 200}, {300, 200, 150, 100}, {300, 200, 77, 61},
        {100, 50, 383, 270},  {500, 40, 130, 120},  {40, 500, 200, 129},
        {1, 1, 9, 9},         {600, 600, 1, 1},     {390, 10, 383, 10}};
    for (const auto& size : sizes) {
        Scaling scaling(size[0], size[1], size[2], size[3]);
        std::uint32_t done = 0;
        EXPECT_TRUE(scaling.fScaler.DoAll(done, nullptr, nullptr));
        EXPECT_EQ(done, scaling.fScaler.CountAllSteps());
        EXPECT_EQ(scaling.fTarget.Copied(), Scaled<std::uint8_t>(scaling.fSource, size[2], size[3]))
            << size[0] << " by " << size[1] << " to " << size[2] << " by " << size[3];
    }
}

TEST(PixmapScaler, StopsAndGoesOn)
{
    Scaling scaling(600, 600, 200, 200);
    CPixmapScaler& scaler = scaling.fScaler;
    std::uint32_t done = 0;
    EXPECT_FALSE(scaler.DoAll(
        done, [](std::uint32_t, void*) { return false; }, nullptr));
    EXPECT_EQ(done, 1u);
    EXPECT_EQ(scaler.CountSteps(), 1u);
    EXPECT_EQ(scaler.DoFirstStep(), 1u);
    EXPECT_EQ(scaler.GetCellState(0, 0), 2u);
    EXPECT_EQ(scaler.DoCellQuietly(1, 1), scaler.GetStepCount(1, 1));
    std::uint32_t told = 0;
    const auto count = [](std::uint32_t steps, void* sum) {
        *static_cast<std::uint32_t*>(sum) += steps;
        return true;
    };
    EXPECT_TRUE(scaler.DoAll(done, count, &told));
    EXPECT_EQ(done, told + 1);
    EXPECT_EQ(scaler.CountStepsLeft(), 0u);
    EXPECT_EQ(scaler.DoFirstStep(), 0u);
    EXPECT_EQ(scaling.fTarget.Copied(), Scaled<std::uint8_t>(scaling.fSource, 200, 200));
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
    const auto stepsFor = [&](CPixmap* dest, const PixelRect& destRect,
                              const PixelRect& sourceRect) {
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
    scaler.SetPixmaps(&target.Pixmap(), &source.Pixmap(), {1010, 10, 1040, 40}, {-10, 50, 20, 80},
                      1, 1, 2, 1);
    scaler.DoCellsQuietly();
    EXPECT_EQ(target.At<std::uint16_t>(10, 10, 1), source.At<std::uint16_t>(0, 0, 2));
    EXPECT_EQ(target.At<std::uint16_t>(39, 39, 1), source.At<std::uint16_t>(29, 29, 2));
    EXPECT_EQ(target.At<std::uint16_t>(9, 9, 1), edge);
}

TEST(PagedPixmaps, AreFilledCopiedAndScaledLikeContiguousOnes)
{
    CVirtualHeap heap;
    const auto copyAll = [](CPixmap& to, CPixmap& from) {
        Copy(to, from, to.GetBounds(), from.GetBounds(), 0, -1);
    };
    CPicture source(8, 300, 290, 2, 3);
    CVirtualPixmap paged(3, 300, 290, 2, 0, false, false, heap);
    copyAll(paged, source.Pixmap());
    CPicture back(8, 300, 290, 2, 4);
    copyAll(back.Pixmap(), paged);
    EXPECT_EQ(back.Copied(), source.Copied());

    CVirtualPixmap small(3, 141, 99, 2, 0, false, false, heap);
    CPicture expected(8, 141, 99, 2, 5);
    CPixmapScaler scaler;
    scaler.SetPixmaps(&small, &paged);
    scaler.DoCellsQuietly();
    scaler.SetPixmaps(&expected.Pixmap(), &source.Pixmap());
    scaler.DoCellsQuietly();
    CPicture result(8, 141, 99, 2, 6);
    copyAll(result.Pixmap(), small);
    EXPECT_EQ(result.Copied(), expected.Copied());

    const std::uint8_t values[] = {1, 2};
    Fill(paged, {100, 100, 250, 250}, values, 0, -1);
    Invert(paged, {100, 100, 101, 101}, 1, 1);
    copyAll(back.Pixmap(), paged);
    EXPECT_EQ(back.At(249, 249, 1), 2);
    EXPECT_EQ(back.At(100, 100, 1), 0xFD);
    EXPECT_EQ(back.At(250, 249, 1), source.At(250, 249, 1));
}

TEST(PagedPixmaps, KeepThePlanesThatTheSourceLacks)
{
    CVirtualHeap heap;
    CPicture source(8, 100, 70, 2, 3);
    const std::uint8_t values[] = {51, 52, 53, 54};
    CVirtualPixmap paged(3, 90, 80, 4, 0, false, false, heap);
    Fill(paged, paged.GetBounds(), values, 0, -1);
    CPixmapScaler scaler;
    scaler.SetPixmaps(&paged, &source.Pixmap(), 0, -1, 1, -1);
    scaler.DoCellsQuietly();
    CPicture result(8, 90, 80, 4, 6);
    Copy(result.Pixmap(), paged, paged.GetBounds(), paged.GetBounds(), 0, -1);
    for (std::size_t plane = 0; plane < 4; ++plane) {
        const auto pixels = result.Bytes().subspan(plane * 90 * 80, 90 * 80);
        const bool stays = std::ranges::count(pixels, values[plane]) == 90 * 80;
        EXPECT_EQ(stays, plane != 0) << plane;
    }
}
