// Pictures through the whole program: saved, opened, assembled.
#include "host/program.h"
#include "host/test_pictures.h"

#include "electricimage/frame_encoder.h"
#include "electricimage/frame_walker.h"

#include <gtest/gtest.h>

#include <string>

namespace Host {
namespace {

class PicturesTest : public testing::Test {
protected:
    // Runs the program on files of the folder and expects that it succeeds.
    ProgramRun Run(std::vector<std::string> arguments)
    {
        const ProgramRun run = RunLumohost(arguments);
        EXPECT_EQ(run.status, 0) << arguments.front() << ": " << run.messages;
        return run;
    }

    std::string Path(const char* name) const { return Argument(fFolder / name); }

    TestFolder fFolder;
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
        Run({"save", Path("in.png"), "-o", Path("file.img")});
        Run({"open", Path("file.img"), "-o", Path("out.png")});
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
    MadePicture picture(PictureMode::kRgb, 64, 64, 3, Texture);
    WritePicture(picture, fFolder / "in.ppm");
    const ProgramRun run = Run({"save", Path("in.ppm"), "-o", Path("out.img"), "--verbose"});
    const std::string size = std::to_string(std::filesystem::file_size(fFolder / "out.img"));
    EXPECT_NE(run.messages.find("estimate was 12388 to 12388 bytes; the file has " + size), std::string::npos)
        << run.messages;
    EXPECT_NE(run.messages.find("every buffer, lock, file and suite was given back"), std::string::npos);
}

TEST_F(PicturesTest, AssemblesFramesOfAllLayouts)
{
    MadePicture colours(PictureMode::kRgb, 19, 5, 3, [](int32_t y, int32_t at) { return (y + at / 3) % 2 * 255; });
    MadePicture grey(PictureMode::kGrayscale, 19, 5, 1, [](int32_t y, int32_t at) { return (y + at) % 2 * 255; });
    WritePicture(colours, fFolder / "c.png");
    WritePicture(grey, fFolder / "g.png");
    Run({"assemble", Path("c.png"), Path("c.png"), Path("c.png"), Path("c.png"), Path("g.png"), "-o", Path("all.ei"),
         "--bits", "1,4,16,32,depth", "--depth", "1:5", "--raw"});
    EIFrameWalker walker(fFolder / "all.ei");
    std::string layouts;
    while (const auto frame = walker.Next())
        layouts += LayoutName(frame->fields) + (frame->fields.packing == 0 ? " raw, " : " packed, ");
    EXPECT_EQ(layouts, "1-bit indexed raw, 4-bit indexed raw, 16-bit RGB raw, 32-bit RGBA raw, depth raw, ");

    // Each layout alone comes back through the module as the black and white that it was.
    for (const char* bits : {"1", "2", "4", "8", "16", "24", "32"}) {
        Run({"assemble", Path("c.png"), "-o", Path("one.ei"), "--bits", bits});
        Run({"open", Path("one.ei"), "-o", Path("one.pam")});
        const auto opened = OpenPicture(fFolder / "one.pam");
        const auto planes = static_cast<size_t>(opened->Info().planes);
        const std::vector<uint8_t> pixels = AllPixels(*opened);
        for (size_t i = 0; i < 19 * 5; ++i)
            ASSERT_EQ(pixels[i * planes], (i / 19 + i % 19) % 2 * 255) << bits << " bits, pixel " << i;
    }
}

TEST_F(PicturesTest, DepthComesAsGreyWithOrWithoutItsRange)
{
    MadePicture grey(PictureMode::kGrayscale, 256, 2, 1, [](int32_t, int32_t at) { return at; });
    WritePicture(grey, fFolder / "g.png");
    const std::vector<std::string> assemble = {"assemble", Path("g.png"), "-o", Path("d.ei"), "--depth", "-3:1250.5"};
    for (const std::vector<std::string>& further :
         {std::vector<std::string>{}, {"--no-range"}, {"--no-range", "--raw"}, {"--infinite-white"}}) {
        std::vector<std::string> arguments = assemble;
        arguments.insert(arguments.end(), further.begin(), further.end());
        Run(arguments);
        Run({"open", Path("d.ei"), "-o", Path("d.png")});
        const auto opened = OpenPicture(fFolder / "d.png");
        EXPECT_EQ(opened->Info().mode, PictureMode::kGrayscale);
        EXPECT_EQ(AllPixels(*opened), AllPixels(grey));
    }
}

// Rows that are all alike but for their first pixel, so that the file is small and the decoding quick.
class WidePicture final : public PictureSource {
public:
    const PictureInfo& Info() const override { return fInfo; }
    const uint8_t* Row(int32_t y) override
    {
        fRow[0] = static_cast<uint8_t>(y);
        return fRow.data();
    }

private:
    PictureInfo fInfo = {PictureMode::kRgb, 30000, 2000, 3, {}};
    std::vector<uint8_t> fRow = std::vector<uint8_t>(fInfo.RowBytes(), 0x55);
};

TEST_F(PicturesTest, ALargePictureNeedsOneMegabyteOfBuffers)
{
    WidePicture wide;
    {
        FrameEncoder encoder(fFolder / "wide.img", 1);
        encoder.Append(wide, {}, "wide");
        encoder.Finish();
    }
    const ProgramRun run = Run({"open", Path("wide.img"), "-o", Path("wide.png"), "--memory-limit", "1M", "--verbose"});
    const size_t found = run.messages.find("peak ");
    ASSERT_NE(found, std::string::npos) << run.messages;
    const long peak = std::stol(run.messages.substr(found + 5));
    EXPECT_GT(peak, 90000 * 2);
    EXPECT_LE(peak, 2 << 20) << "the limit, and as much head-room as the module asked for";
    const auto opened = OpenPicture(fFolder / "wide.png");
    EXPECT_TRUE(std::equal(opened->Row(1999), opened->Row(1999) + 90000, wide.Row(1999)));
}

} // namespace
} // namespace Host
