// Regions against a plain model: a small bitmap of what is inside.
#include "drawing/regions/region.h"
#include "support/testing.h"

#include <bitset>

namespace {

using namespace Kesto;
using ::testing::ElementsAre;

constexpr std::int32_t kSide = 24;
using Model = std::bitset<kSide * kSide>;

std::size_t PlaceOf(std::int32_t x, std::int32_t y)
{
    return static_cast<std::size_t>(y * kSide + x);
}

Model ModelOf(const PixelRect& rect)
{
    Model model;
    for (std::int32_t y = std::max(rect.top, 0); y < std::min(rect.bottom, kSide); ++y)
        for (std::int32_t x = std::max(rect.left, 0); x < std::min(rect.right, kSide); ++x)
            model.set(PlaceOf(x, y));
    return model;
}

template <class Region>
Model ModelOf(const Region& region)
{
    Model model;
    for (std::int32_t y = 0; y < kSide; ++y)
        for (std::int32_t x = 0; x < kSide; ++x)
            model.set(PlaceOf(x, y), region.Contains(x, y));
    return model;
}

// The bands that a region's rectangles must form, whatever made it.
template <class Region>
void ExpectBands(const Region& region)
{
    const auto rects = region.GetRects();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        EXPECT_FALSE(rects[i].IsEmpty()) << i;
        if (i == 0)
            continue;
        const auto& before = rects[i - 1];
        if (before.top == rects[i].top)
            EXPECT_TRUE(before.bottom == rects[i].bottom && before.right < rects[i].left) << i;
        else
            EXPECT_LE(before.bottom, rects[i].top) << i;
    }
}

template <class RectType>
RectType Made(const PixelRect& rect)
{
    using Number = decltype(RectType::left);
    return {static_cast<Number>(rect.left), static_cast<Number>(rect.top),
            static_cast<Number>(rect.right), static_cast<Number>(rect.bottom)};
}

template <class RectType>
class RegionTest : public ::testing::Test {
};
using RectTypes = ::testing::Types<Rect, PixelRect>;
TYPED_TEST_SUITE(RegionTest, RectTypes);

TYPED_TEST(RegionTest, AgreesWithABitmapThroughRandomOperations)
{
    using Region = RegionOf<TypeParam>;
    std::mt19937 random(7);
    const auto number = [&](std::int32_t below) {
        return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(below));
    };
    const auto randomRect = [&] { // inverted at times
        return PixelRect{number(kSide), number(kSide), number(kSide), number(kSide)};
    };
    Region region;
    Model model;
    for (int step = 0; step < 4000; ++step) {
        SCOPED_TRACE(step);
        const std::array rects{randomRect(), randomRect(), randomRect()};
        Region other;
        Model otherModel;
        for (const PixelRect& rect : rects) {
            other.Union(Made<TypeParam>(rect));
            otherModel |= ModelOf(rect);
        }
        switch (step % 4) {
        case 0:
            region.Union(other);
            model |= otherModel;
            break;
        case 1:
            region.Subtract(other);
            model &= ~otherModel;
            break;
        case 2:
            region.Union(Made<TypeParam>(rects[0]));
            model |= ModelOf(rects[0]);
            break;
        default:
            if (number(4) == 0) {
                region.Intersect(other);
                model &= otherModel;
            }
        }
        ASSERT_EQ(ModelOf(region), model);
        ExpectBands(region);
        const PixelRect probe = randomRect();
        EXPECT_EQ(region.Contains(Made<TypeParam>(probe)), (ModelOf(probe) & ~model).none());
        EXPECT_EQ(region.Intersects(Made<TypeParam>(probe)), (ModelOf(probe) & model).any());

        // The same area has the same rectangles when it is put together pixel by pixel.
        if (step % 200 == 0) {
            Region again;
            for (std::int32_t y = kSide; y-- > 0;)
                for (std::int32_t x = 0; x < kSide; ++x)
                    if (model.test(PlaceOf(x, y)))
                        again.Union(Made<TypeParam>({x, y, x + 1, y + 1}));
            EXPECT_TRUE(again == region);
        }
        if (::testing::Test::HasFailure())
            return;
    }
}

TEST(Region, MovesAndStopsAtTheEndsOfItsNumbers)
{
    CDeviceRegion region(PixelRect{0, 0, 4, 4});
    region.Subtract(PixelRect{1, 1, 3, 3});
    CDeviceRegion moved = region;
    moved.Move(10, -2);
    EXPECT_EQ(moved.GetBounds(), (PixelRect{10, -2, 14, 2}));
    EXPECT_FALSE(moved.Contains(12, 0));
    moved.Move(-10, 2);
    EXPECT_TRUE(moved == region);

    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    moved.Move(kMost - 2, 0); // the right half is squeezed to nothing
    EXPECT_THAT(moved.GetRects(), ElementsAre(PixelRect{kMost - 2, 0, kMost, 1},
                                              PixelRect{kMost - 2, 1, kMost - 1, 3},
                                              PixelRect{kMost - 2, 3, kMost, 4}));
    moved.Move(kMost, 0);
    EXPECT_TRUE(moved.IsEmpty());
    EXPECT_EQ(moved.GetBounds(), PixelRect{});
}

TEST(Region, TakesNoAreaFromRectanglesThatHaveNone)
{
    const double nan = std::nan("");
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<const char*, Rect> rows[] = {
        {"empty", {1, 1, 1, 5}},
        {"inverted", {5, 1, 1, 5}},
        {"a side that is no number", {nan, 0, 10, 10}},
        {"no side a number", {nan, nan, nan, nan}},
        {"infinitely far", {infinity, 0, infinity, 10}},
    };
    for (const auto& [what, rect] : rows) {
        SCOPED_TRACE(what);
        CBRVRegion region(Rect{0, 0, 10, 10});
        const CBRVRegion before = region;
        region.Union(rect).Subtract(rect);
        EXPECT_TRUE(region == before);
        EXPECT_TRUE(region.Contains(rect));
        EXPECT_FALSE(region.Intersects(rect));
        EXPECT_TRUE(region.Intersect(rect).IsEmpty());
    }
}

TEST(Region, TakesEndlessRectangles)
{
    const double infinity = std::numeric_limits<double>::infinity();
    CBRVRegion region(Rect{-infinity, -infinity, infinity, infinity});
    region.Union(Rect{0, 5, infinity, infinity}).Subtract(Rect{0, 0, 10, infinity});
    EXPECT_EQ(region.GetRects().size(), 3u);
    EXPECT_TRUE(region.Contains(10, 1e300));
    EXPECT_FALSE(region.Contains(9, 1e300));
    region.Move(infinity, -infinity);
    EXPECT_TRUE(region.IsEmpty());
}

TEST(Region, GoesToPixelsByTheRuleAndBackWithAPixelMore)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        CBRVRegion units(Rect{3, 2, 4, 3});
        units.Union(Rect{4, 3, 9.5, 7});
        const CDeviceRegion pixels = ToDevice(units, scale);
        EXPECT_TRUE(pixels.Contains(ToDevice(Rect{4, 3, 9.5, 7}, scale)));
        CBRVRegion rest = units;
        rest.Subtract(ToUnits(pixels, scale));
        EXPECT_TRUE(rest.IsEmpty());
    }
}

} // namespace
