#include "foundation/base/geometry.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
using Testing::kInfinity;
using Testing::kNaN;

} // namespace

TEST(Geometry, RoundsHalvesAwayFromZero)
{
    constexpr std::pair<double, std::int32_t> kRows[] = {
        {0.5, 1},
        {-0.5, -1},
        {1.5, 2},
        {-1.5, -2},
        {0.49, 0},
        {-0.49, 0},
        {2.49, 2},
        {-2.51, -3},
        {1e10, kMost},
        {-1e10, kLeast},
        {kNaN, 0},
        {-0.0, 0},
        {kInfinity, kMost},
        {kMost + 0.5, kMost},
        {0.49999999999999994, 0}, // adding a half would make it 1
    };
    for (const auto& [value, whole] : kRows)
        EXPECT_EQ(RoundHalfAway(value), whole) << value;
}

TEST(Geometry, AUnitIsAtLeastAPixelAndEdgesMeet)
{
    constexpr std::tuple<double, double, std::int32_t> kRows[] = {
        {0.5, 1, 1},    {0.48, 1, 0}, {-0.5, 1, 0},    {-0.52, 1, -1},    {1, 1.25, 1},
        {2, 1.25, 3},   {3, 1.5, 5},  {-3, 1.5, -4},   {10, 0, 10},       {10, -2, 10},
        {10, kNaN, 10}, {kNaN, 2, 0}, {1e9, 4, kMost}, {-1e9, 4, kLeast}, {1, kInfinity, kMost}};
    for (const auto& [unit, scale, pixels] : kRows)
        EXPECT_EQ(ToDevice(unit, scale), pixels) << unit << " at " << scale;
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
        for (int unit = -100; unit < 100; ++unit)
            EXPECT_LT(ToDevice(unit, scale), ToDevice(unit + 1, scale)) << unit << " at " << scale;
    EXPECT_EQ(ToDevice(Rect{0.5, 1, 2, 3}, 2), (PixelRect{1, 2, 4, 6}));
}

TEST(Geometry, RectanglesMeetOrAreEmpty)
{
    const Rect rect{0, 0, 10, 10};
    const std::tuple<const char*, Rect, Rect> rows[] = {{"overlap", {5, -5, 20, 5}, {5, 0, 10, 5}},
                                                        {"touch", {10, 0, 20, 10}, {}},
                                                        {"lie apart", {20, 20, 30, 30}, {}},
                                                        {"within", {2, 3, 4, 5}, {2, 3, 4, 5}}};
    for (const auto& [what, other, both] : rows) {
        EXPECT_EQ(Intersect(rect, other), both) << what;
        EXPECT_EQ(Intersect(other, rect), both) << what;
    }
    EXPECT_TRUE((Rect{0, 0, kNaN, 10}.IsEmpty()));
}
