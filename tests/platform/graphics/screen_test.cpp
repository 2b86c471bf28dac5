#include "platform/graphics/cursors.h"
#include "platform/graphics/monitors.h"
#include "platform/graphics/system_colours.h"
#include "support/testing.h"

namespace {

using namespace Platform;

TEST(Monitors, AreThereWithTheirWorkArea)
{
    const auto monitors = ListMonitors();
    ASSERT_FALSE(monitors.empty());
    for (const Monitor& monitor : monitors) {
        SCOPED_TRACE(&monitor - monitors.data());
        EXPECT_FALSE(monitor.bounds.IsEmpty());
        EXPECT_FALSE(monitor.workArea.IsEmpty());
        EXPECT_EQ(Intersect(monitor.workArea, monitor.bounds), monitor.workArea);
        EXPECT_GT(monitor.scale, 0.2);
    }
}

TEST(Monitors, ARectangleBelongsToTheOneThatShowsMostOfIt)
{
    const std::vector<Monitor> monitors = {{{0, 0, 1000, 800}, {}, 1.0},
                                           {{1000, 200, 2000, 1000}, {}, 2.0},
                                           {{-500, 0, 0, 400}, {}, 1.0}};
    const std::tuple<const char*, PixelRect, std::size_t> rows[] = {
        {"on the first alone", {10, 10, 20, 20}, 0},
        {"mostly on the second", {900, 300, 1200, 400}, 1},
        {"half on each: the earlier", {950, 300, 1050, 400}, 0},
        {"beside the third", {-900, 100, -700, 200}, 2},
        {"below the second", {1900, 5000, 1950, 5100}, 1},
        {"a point", {-5, 5, -5, 5}, 2},
        {"everywhere", {INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, 0},
    };
    for (const auto& [words, rect, monitor] : rows)
        EXPECT_EQ(MonitorOf(monitors, rect), monitor) << words;
}

TEST(Cursors, AreTheSameWhenCopied)
{
    const std::vector<std::uint32_t> pixels(16 * 16, 0xFF000000);
    const Cursor made(pixels, 16, 16, {99, -7});
    const Cursor copy = made;
    EXPECT_EQ(copy, made);
    EXPECT_NE(made, Cursor(pixels, 16, 16, {99, -7}));
}

TEST(Cursors, AreTheArrowWhereThereIsNoPicture)
{
    const std::vector<std::uint32_t> pixels(64);
    for (const auto& [width, height] :
         {std::pair{0, 8}, {8, -8}, {65, 1}, {513, 1}, {INT32_MAX, INT32_MAX}}) {
        SCOPED_TRACE(width);
        EXPECT_NO_FATAL_FAILURE(Cursor(pixels, width, height, {}).GetRecord())
            << width << " x " << height;
    }
}

TEST(SystemColours, HaveNoneOutsideTheirTable)
{
    for (const int index : {-1, 31, 1000, INT32_MAX, INT32_MIN})
        EXPECT_EQ(SystemColour(index), std::nullopt) << index;
}

} // namespace
