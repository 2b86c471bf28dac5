#include "failure.h"
#include "host/test_pictures.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

namespace Host {
namespace {

class PictureFilesTest : public testing::Test {
protected:
    void ExpectSame(PictureSource& picture, const std::string& name, int compression = 1)
    {
        WritePicture(picture, fFolder / name, compression);
        const auto read = OpenPicture(fFolder / name);
        EXPECT_EQ(read->Info().mode, picture.Info().mode) << name;
        EXPECT_EQ(read->Info().width, picture.Info().width) << name;
        EXPECT_EQ(read->Info().palette.red, picture.Info().palette.red) << name;
        EXPECT_EQ(AllPixels(*read), AllPixels(picture))
            << name << " packed at level " << compression;
    }

    TemporaryFolder fFolder;
};

TEST_F(PictureFilesTest, EveryKindComesBack)
{
    MadePicture grey(PictureMode::kGrayscale, 33, 20, 1, Texture);
    MadePicture rgb(PictureMode::kRgb, 33, 20, 3, Texture);
    MadePicture rgba(PictureMode::kRgb, 33, 20, 4, Texture);
    MadePicture indexed(PictureMode::kIndexed, 33, 20, 1, Texture);
    indexed.Info().palette.red[3] = 250;
    for (const auto& [picture, name] : {std::pair<MadePicture*, const char*>{&grey, "grey.png"},
                                        {&grey, "grey.pgm"},
                                        {&grey, "grey.pam"},
                                        {&rgb, "rgb.png"},
                                        {&rgb, "rgb.ppm"},
                                        {&rgb, "rgb.pam"},
                                        {&rgba, "rgba.png"},
                                        {&rgba, "rgba.pam"},
                                        {&indexed, "indexed.png"}})
        ExpectSame(*picture, name);
    EXPECT_THROW(WritePicture(rgba, fFolder / "rgba.ppm"), Failure);
    // More than a megabyte, so that it is packed in several bands.
    MadePicture large(PictureMode::kRgb, 700, 900, 3, Texture);
    for (const int level : {0, 1, 2, 6, 9})
        ExpectSame(large, "large.png", level);
}

TEST_F(PictureFilesTest, RowsOfAPlainPictureComeInAnyOrder)
{
    MadePicture picture(PictureMode::kRgb, 5000, 60, 3, Texture); // several bands
    WritePicture(picture, fFolder / "p.ppm");
    const auto read = OpenPicture(fFolder / "p.ppm");
    for (const int32_t y : {59, 0, 30, 29, 58})
        EXPECT_TRUE(std::equal(read->Row(y), read->Row(y) + 15000, picture.Row(y))) << y;
}

TEST_F(PictureFilesTest, BadPicturesAreRefused)
{
    for (const char* const bytes : {"", "hello", "P6 1 1 65535\n000000", "P5 0 5 255\n",
                                    "P7\n# no end", "P6 -4 4 255\n", "\x89PNG\r\n\x1a\n"})
        EXPECT_THROW(OpenPicture(fFolder.Put("bad", bytes)), Failure) << bytes;
    const auto cut = OpenPicture(fFolder.Put("cut.ppm", "P6 # cut\n2 2 255\n123456789"));
    EXPECT_THROW(cut->Row(0), Failure);
    EXPECT_THROW(CreatePicture(fFolder / "picture.tiff", {}), Failure);
}

TEST_F(PictureFilesTest, APictureThatIsNotFinishedLeavesTheOldOne)
{
    fFolder.Put("p.png", "old");
    MadePicture picture(PictureMode::kRgb, 8, 8, 3, Texture);
    for (const char* name : {"p.png", "p.ppm"}) {
        const auto sink = CreatePicture(fFolder / name, {});
        sink->Begin(picture.Info());
        sink->PutRows(picture.Row(0), picture.Info().RowBytes(), 1);
    }
    EXPECT_EQ(fFolder.Get("p.png"), "old");
    EXPECT_EQ(fFolder.Count(), 1);
}

} // namespace
} // namespace Host
