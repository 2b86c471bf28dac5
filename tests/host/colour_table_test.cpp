#include "electricimage/colour_table.h"
#include "failure.h"
#include "host/test_pictures.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace Host {
namespace {

std::vector<uint8_t> Convert(ColourTable& table, PictureSource& picture, int32_t y)
{
    std::vector<uint8_t> indices(static_cast<size_t>(picture.Info().width));
    table.Convert(picture.Info(), picture.Row(y), indices.data());
    return indices;
}

TEST(ColourTable, KeepsAPaletteWhoseIndicesFit)
{
    MadePicture picture(PictureMode::kIndexed, 6, 1, 1, [](int32_t, int32_t at) { return at % 4; });
    picture.Info().palette.red = {200, 200, 10, 20}; // two entries alike stay two
    ColourTable table(picture, 2, false, "picture");
    EXPECT_EQ(Convert(table, picture, 0), (std::vector<uint8_t>{0, 1, 2, 3, 0, 1}));
    EXPECT_EQ(table.Colours().red, picture.Info().palette.red);
}

TEST(ColourTable, GivesEachColourItsEntryWhenTheyFit)
{
    MadePicture picture(PictureMode::kRgb, 4, 4, 3, [](int32_t y, int32_t at) { return at % 3 == 0 ? 60 * y : 7; });
    ColourTable table(picture, 2, false, "picture");
    for (int32_t y = 0; y < 4; ++y) {
        const std::vector<uint8_t> indices = Convert(table, picture, y);
        EXPECT_EQ(table.Colours().red[indices[0]], 60 * y);
        EXPECT_EQ(table.Colours().green[indices[0]], 7);
    }
}

TEST(ColourTable, SaysHowManyColoursAreTooMany)
{
    MadePicture picture(PictureMode::kGrayscale, 5, 1, 1, [](int32_t, int32_t at) { return at * 50; });
    try {
        ColourTable table(picture, 2, false, "steps.png");
        FAIL() << "five greys in two bits";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "steps.png has 5 colours, 2 bits hold 4");
    }
}

TEST(ColourTable, ReducesToSimilarColours)
{
    MadePicture ramp(PictureMode::kGrayscale, 256, 1, 1, [](int32_t, int32_t at) { return at; });
    ColourTable table(ramp, 4, true, "ramp");
    const std::vector<uint8_t> indices = Convert(table, ramp, 0);
    for (size_t level = 0; level < 256; ++level)
        EXPECT_LE(std::abs(static_cast<int>(table.Colours().red[indices[level]]) - static_cast<int>(level)), 16);
}

} // namespace
} // namespace Host
