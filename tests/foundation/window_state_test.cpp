#include "foundation/window_state.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

namespace Kesto {
namespace {

WindowState FromLayout(const std::map<std::string, double, std::less<>>& keys)
{
    return WindowStateFromLayout([&](std::string_view key) -> std::optional<double> {
        const auto found = keys.find(key);
        return found == keys.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(WindowState, HasItsDefaults)
{
    const WindowState plain;
    EXPECT_EQ(plain.sizeX, -100);
    EXPECT_EQ(plain.sizeY, -100);
    EXPECT_EQ(plain.positionX, 0);
    EXPECT_EQ(plain.positionY, 0);
    EXPECT_EQ(plain.slopX, 2);
    EXPECT_EQ(plain.slopY, 2);

    WindowState expected;
    expected.sizeX = expected.sizeY = 0;
    expected.positionX = -50;
    expected.positionY = -33;
    EXPECT_EQ(WindowState::FromNothing(), expected);
}

TEST(WindowState, TakesTheViewsSizeWhereALayoutGivesNone)
{
    WindowState expected;
    expected.sizeX = expected.sizeY = 0;
    EXPECT_EQ(FromLayout({}), expected);
    expected.sizeX = 320;
    expected.sizeY = 200.5;
    EXPECT_EQ(FromLayout({{"width", 320}, {"height", 200.5}}), expected);
    expected.sizeX = 7;
    EXPECT_EQ(FromLayout({{"width", 320}, {"height", 200.5}, {"window_size_x", 7}}), expected);
}

TEST(WindowState, ReadsEveryLayoutKey)
{
    const WindowState expected{1, 2, 3.5, 4, 5, 6, 7, 8, 9, 10, 11, 12, -13, -14, 15, 16};
    EXPECT_EQ(FromLayout({{"window_state", 1},
                          {"window_monitor", 2},
                          {"window_last_left", 3.5},
                          {"window_last_top", 4},
                          {"window_last_right", 5},
                          {"window_last_bottom", 6},
                          {"window_user_left", 7},
                          {"window_user_top", 8},
                          {"window_user_right", 9},
                          {"window_user_bottom", 10},
                          {"window_size_x", 11},
                          {"window_size_y", 12},
                          {"window_position_x", -13},
                          {"window_position_y", -14},
                          {"window_slop_x", 15},
                          {"window_slop_y", 16}}),
              expected);
}

TEST(WindowState, HoldsNumbersWithinItsIntegerFields)
{
    const WindowState window = FromLayout({{"window_state", 1e300},
                                           {"window_monitor", std::numeric_limits<double>::quiet_NaN()},
                                           {"window_slop_x", -1e300},
                                           {"window_slop_y", 40000}});
    EXPECT_EQ(window.state, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(window.monitor, 0);
    EXPECT_EQ(window.slopX, -32768);
    EXPECT_EQ(window.slopY, 32767);
}

} // namespace
} // namespace Kesto
