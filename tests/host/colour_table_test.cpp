#include "electricimage/colour_table.h"
#include "failure.h"
#include "host/test_pictures.h"
#include "support/testing.h"

namespace Host {
namespace {

Bytes Convert(ColourTable& table, PictureSource& picture, int32_t y)
{
    Bytes indices(static_cast<size_t>(picture.Info().width));
    table.Convert(picture.Info(), picture.Row(y), indices.data());
    return indices;
}

TEST(ColourTable, KeepsAPaletteWhoseIndicesFit)
{
    MadePicture picture(PictureMode::kIndexed, 6, 1, 1, [](int32_t, int32_t at) { return at % 4; });
    picture.Info().palette.red = {200, 200, 10, 20}; // two entries alike stay two
    ColourTable table(picture, 2, false, "picture");
    EXPECT_EQ(Convert(table, picture, 0), (Bytes{0, 1, 2, 3, 0, 1}));
    EXPECT_EQ(table.Colours().red, picture.Info().palette.red);
}

TEST(ColourTable, GivesEachColourItsEntryWhenTheyFit)
{
    MadePicture picture(PictureMode::kRgb, 4, 4, 3,
                        [](int32_t y, int32_t at) { return at % 3 == 0 ? 60 * y : 7; });
    ColourTable table(picture, 2, false, "picture");
    for (int32_t y = 0; y < 4; ++y) {
        SCOPED_TRACE(y);
        const size_t index = Convert(table, picture, y)[0];
        EXPECT_EQ(table.Colours().red[index], 60 * y);
        EXPECT_EQ(table.Colours().green[index], 7);
    }
}

TEST(ColourTable, ReducesToSimilarColours)
{
    MadePicture ramp(PictureMode::kGrayscale, 256, 1, 1, [](int32_t, int32_t at) { return at; });
    ColourTable table(ramp, 4, true, "ramp");
    const Bytes indices = Convert(table, ramp, 0);
    for (int level = 0; level < 256; ++level)
        EXPECT_LE(std::abs(table.Colours().red[indices[static_cast<size_t>(level)]] - level), 16)
            << level;
    try {
        ColourTable(ramp, 2, false, "ramp.png");
        FAIL() << "256 greys in two bits";
    } catch (const Failure& failure) {
        EXPECT_STREQ(failure.what(), "ramp.png has 256 colours, 2 bits hold 4");
    }
}

} // namespace
} // namespace Host
