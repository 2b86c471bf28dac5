// Pictures through the whole program: saved, opened, assembled.
#include "host/program.h"
#include "host/test_pictures.h"

#include "electricimage/frame_encoder.h"
#include "electricimage/frame_walker.h"

namespace Host {
namespace {

class PicturesTest : public LumohostTest {
protected:
    // Opens an image of the folder through the module.
    std::unique_ptr<PictureSource> Opened(const char* name)
    {
        RunLumohost({"open", Path(name), "-o", Path("opened.pam")});
        return OpenPicture(fFolder / "opened.pam");
    }
};

TEST_F(PicturesTest, EveryKindSurvivesSavingAndOpening)
{
    MadePicture kinds[] = {{PictureMode::kGrayscale, 61, 17, 1, Texture},
                           {PictureMode::kIndexed, 61, 17, 1, Texture},
                           {PictureMode::kRgb, 61, 17, 3, Texture},
                           {PictureMode::kRgb, 61, 17, 4, Texture}};
    kinds[1].Info().palette.green[7] = 99;
    for (MadePicture& picture : kinds) {
        WritePicture(picture, fFolder / "in.png");
        RunLumohost({"save", Path("in.png"), "-o", Path("file.img")});
        RunLumohost({"open", Path("file.img"), "-o", Path("out.png")});
        const auto opened = OpenPicture(fFolder / "out.png");
        EXPECT_EQ(AllPixels(*opened), AllPixels(picture)) << KindOf(picture.Info());
        EXPECT_EQ(opened->Info().planes, picture.Info().planes);
        // A grey document is stored with a table of greys and comes back indexed.
        if (picture.Info().planes == 1) {
            EXPECT_EQ(opened->Info().mode, PictureMode::kIndexed);
            EXPECT_EQ(opened->Info().palette.green, picture.Info().palette.green);
        }
    }
}

TEST_F(PicturesTest, TheEstimateAndTheRealSizeAreShown)
{
    WritePicture({PictureMode::kRgb, 64, 64, 3, Texture}, fFolder / "in.ppm");
    const std::string said =
        RunLumohost({"save", Path("in.ppm"), "-o", Path("out.img"), "--verbose"}).messages;
    const std::string size = std::to_string(std::filesystem::file_size(fFolder / "out.img"));
    EXPECT_NE(said.find("estimate was 12388 to 12388 bytes; the file has " + size),
              std::string::npos)
        << said;
    EXPECT_NE(said.find("every buffer, lock, file and suite was given back"), std::string::npos)
        << said;
}

TEST_F(PicturesTest, AssemblesFramesOfAllLayouts)
{
    MadePicture colours(PictureMode::kRgb, 19, 5, 3,
                        [](int32_t y, int32_t at) { return (y + at / 3) % 2 * 255; });
    MadePicture grey(PictureMode::kGrayscale, 19, 5, 1,
                     [](int32_t y, int32_t at) { return (y + at) % 2 * 255; });
    WritePicture(colours, fFolder / "c.png");
    WritePicture(grey, fFolder / "g.png");
    const std::string c = Path("c.png");
    RunLumohost({"assemble", c, c, c, c, Path("g.png"), "-o", Path("all.ei"), "--bits",
                 "1,4,16,32,depth", "--depth", "1:5", "--raw"});
    EIFrameWalker walker(fFolder / "all.ei");
    std::string layouts;
    while (const auto frame = walker.Next())
        layouts +=
            LayoutName(frame->fields) + (frame->fields.packing == 0 ? " raw, " : " packed, ");
    EXPECT_EQ(layouts,
              "1-bit indexed raw, 4-bit indexed raw, 16-bit RGB raw, 32-bit RGBA raw, depth raw, ");

    // Each layout alone comes back through the module as the black and white that it was.
    for (const char* bits : {"1", "2", "4", "8", "16", "24", "32"}) {
        RunLumohost({"assemble", c, "-o", Path("one.ei"), "--bits", bits});
        const auto opened = Opened("one.ei");
        const auto planes = static_cast<size_t>(opened->Info().planes);
        const Bytes pixels = AllPixels(*opened);
        for (size_t i = 0; i < 19 * 5; ++i)
            ASSERT_EQ(pixels[i * planes], (i / 19 + i % 19) % 2 * 255)
                << bits << " bits, pixel " << i;
    }
}

TEST_F(PicturesTest, DepthComesAsGreyWithOrWithoutItsRange)
{
    MadePicture grey(PictureMode::kGrayscale, 256, 2, 1, [](int32_t, int32_t at) { return at; });
    WritePicture(grey, fFolder / "g.png");
    for (const std::vector<std::string>& further : {std::vector<std::string>{},
                                                    {"--no-range"},
                                                    {"--no-range", "--raw"},
                                                    {"--infinite-white"}}) {
        std::vector<std::string> arguments = {"assemble",   Path("g.png"), "-o",
                                              Path("d.ei"), "--depth",     "-3:1250.5"};
        arguments.insert(arguments.end(), further.begin(), further.end());
        RunLumohost(arguments);
        const auto opened = Opened("d.ei");
        EXPECT_EQ(opened->Info().mode, PictureMode::kGrayscale);
        EXPECT_EQ(AllPixels(*opened), AllPixels(grey)) << further.size();
    }
}

// Rows that are all alike but for their first pixel, so that the file is small and the decoding
// quick.
int WideRow(int32_t y, int32_t at)
{
    return at == 0 ? y : 0x55;
}

TEST_F(PicturesTest, ALargePictureNeedsOneMegabyteOfBuffers)
{
    MadePicture wide(PictureMode::kRgb, 30000, 400, 3, WideRow);
    FrameEncoder encoder(fFolder / "wide.img", 1);
    encoder.Append(wide, {}, "wide");
    encoder.Finish();
    const std::string said = RunLumohost({"open", Path("wide.img"), "-o", Path("wide.png"),
                                          "--memory-limit", "1M", "--verbose"})
                                 .messages;
    ASSERT_NE(said.find("peak "), std::string::npos) << said;
    const long peak = std::stol(said.substr(said.find("peak ") + 5));
    EXPECT_GT(peak, 90000 * 2);
    EXPECT_LE(peak, 2 << 20) << "the limit, and as much head-room as the module asked for";
    const auto opened = OpenPicture(fFolder / "wide.png");
    EXPECT_TRUE(std::equal(opened->Row(399), opened->Row(399) + 90000, wide.Row(399)));
}

} // namespace
} // namespace Host
