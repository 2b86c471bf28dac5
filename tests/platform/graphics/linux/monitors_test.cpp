#include "platform/graphics/linux/monitors.h"
#include "support/testing.h"

namespace {

TEST(MonitorScale, ComesFromTheDesktopsResources)
{
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"Xft.dpi:\t144\n", 1.5},
        {"*background: white\nXft.antialias: 1\nXft.dpi: 192", 2.0},
        {"Xft.dpi:120.5\nXft.dpi:\t96\n", 120.5 / 96},
        {"", std::nullopt},
        {"Xft.dpi:", std::nullopt},
        {"Xft.dpi: many\n", std::nullopt},
        {"Xft.dpi: 0\n", std::nullopt},
        {"Xft.dpi: -96\n", std::nullopt},
        {"Xft.dpi: nan\n", std::nullopt},
        {"Xft.dpi: 1e300\n", std::nullopt},
        {"MyXft.dpi: 144\n", std::nullopt},
    };
    for (const auto& [resources, scale] : rows)
        EXPECT_EQ(Platform::ScaleFromResources(resources), scale) << resources;
}

TEST(MonitorScale, ElseFromTheSizeOfTheMonitor)
{
    const struct {
        const char* words;
        std::int32_t pixels, millimetres;
        double scale;
    } rows[] = {
        {"a desktop monitor of 24 inches", 1920, 531, 1.0},
        {"4K on 27 inches", 3840, 597, 1.5},
        {"a dense notebook of 13 inches", 2560, 286, 2.25},
        {"a television", 1920, 1210, 1.0},
        {"an aspect ratio in place of a size", 1920, 16, 1.0},
        {"no size", 1920, 0, 1.0},
        {"nothing at all", 0, 300, 1.0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Platform::ScaleFromSize(row.pixels, row.millimetres), row.scale) << row.words;
}

} // namespace
