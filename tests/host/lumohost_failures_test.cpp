// What lumohost says and leaves behind when something is wrong.
#include "host/program.h"
#include "host/test_pictures.h"

namespace Host {
namespace {

class FailuresTest : public LumohostTest {
protected:
    FailuresTest() { WritePicture({PictureMode::kRgb, 40, 40, 3, Texture}, fFolder / "p.ppm"); }

    const std::string fPicture = Path("p.ppm"), fImage = Path("o.img"), fPng = Path("o.png"),
                      fFrames = Path("o.ei");
    const std::string fSample = Argument(SourceFile("samples/rgb-24.ei"));
};

TEST_F(FailuresTest, MistakesOnTheCommandLineHaveAStatusOfTheirOwn)
{
    ExpectFailure(2, {}, {"assemble", "lumohost COMMAND --help"});
    ExpectFailure(2, {"opne", fSample}, {"not expected", "opne"});
    ExpectFailure(2, {"open"}, {"file is required"});
    ExpectFailure(2, {"open", fSample, "--compression", "12"}, {"--compression"});
    ExpectFailure(2, {"open", fSample, "--describe", "--scale", "nan"}, {"nan is no number"});
    ExpectFailure(1, {"open", "/missing.img", "-o", fPng}, {"could not be found. (-43)"});
    EXPECT_NE(RunLumohost({"assemble", "--help"}).output.find("Examples:"), std::string::npos);
}

TEST_F(FailuresTest, ThePropertyListRefusesBeforeTheModuleIsAsked)
{
    fFolder.Put("picture.gif", "GIF89a");
    ExpectFailure(1, {"open", Path("picture.gif"), "-o", fPng},
                  {"\".gif\"", ".IMG, .EI, .EIZ, .EIZZ"});
    ExpectFailure(1, {"save", fPicture, "-o", fFrames}, {"\".ei\"", "It takes .IMG;"});
    WritePicture({PictureMode::kGrayscale, 30001, 1, 1, Texture}, fFolder / "wide.pgm");
    const std::vector<std::string> save = {"save", Path("wide.pgm"), "-o", fImage, "--verbose"};
    ExpectFailure(1, save, {"30001 x 1, the limit is 30000 x 30000"});
    EXPECT_EQ(RunLumohost(save, 1).messages.find("write prepare"), std::string::npos);
}

TEST_F(FailuresTest, CodesComeWithTheirTextAndAWayOut)
{
    const std::string text =
        Argument(fFolder.Put("text.img", "no picture at all, though long enough for the headers"));
    const std::string five = Argument(SourceFile("samples/five-frames.ei"));
    ExpectFailure(1, {"open", Path("missing.img"), "-o", fPng},
                  {"The file or directory could not be found. (-43)", "Check the spelling"});
    ExpectFailure(1, {"open", text, "-o", fPng},
                  {"isn't in the format. (-30501)", "lumohost info"});
    ExpectFailure(1, {"info", text}, {"is not an ElectricImage file"});
    ExpectFailure(1, {"open", fSample, "-o", fPng, "--memory-limit", "100"},
                  {"There is not enough memory. (-108)", "--memory-limit"});
    ExpectFailure(1, {"open", fSample, "-o", fPng, "--memory-limit", "lots"}, {"is no size"});
    ExpectFailure(1, {"open", fSample, "-o", Path("no/folder/o.png")}, {"(-43)"});
    ExpectFailure(1, {"selectors", "--module", Path("missing.so")},
                  {"can't be loaded", "--module PATH"});
    ExpectFailure(1, {"open", five, "-o", fPng, "--all", "--describe"},
                  {"a script is played on one dialog", "one frame of one file"});
}

TEST_F(FailuresTest, AStoppedOrBrokenRunLeavesTheOldFile)
{
    const std::filesystem::path whole = SourceFile("samples/rgb-24.eiz");
    std::filesystem::copy_file(whole, fFolder / "cut.eiz");
    std::filesystem::resize_file(fFolder / "cut.eiz", std::filesystem::file_size(whole) / 2);
    fFolder.Put("o.png", "old");
    fFolder.Put("o.img", "old");
    ExpectFailure(130, {"save", fPicture, "-o", fImage, "--abort-at", "20"}, {"canceled. (-128)"});
    ExpectFailure(130, {"save", fPicture, "-o", Path("new.img"), "--abort-at", "1"}, {});
    ExpectFailure(130, {"open", Argument(whole), "-o", fPng, "--abort-at", "100"},
                  {"canceled. (-128)"});
    ExpectFailure(1, {"open", Path("cut.eiz"), "-o", fPng}, {"(-30501)"});
    ExpectFailure(1, {"info", Path("cut.eiz")}, {"frames with faults"});
    EXPECT_EQ(fFolder.Get("o.img") + fFolder.Get("o.png"), "oldold");
}

TEST_F(FailuresTest, APictureThatCantBeReadOrDoesNotFitSavesNothing)
{
    fFolder.Put("cut.ppm", fFolder.Get("p.ppm").substr(0, 2000));
    fFolder.Put("cut.png", "\x89PNG\r\n\x1a\n");
    ExpectFailure(1, {"save", Path("cut.ppm"), "-o", fImage}, {"prematurely reached. (-39)"});
    ExpectFailure(1, {"save", Path("cut.png"), "-o", fImage}, {"cut.png"});
    const std::pair<std::vector<std::string>, std::vector<std::string>> kOptions[] = {
        {{"--bits", "4"}, {"4 bits hold 16", "--reduce"}},
        {{"--bits", "5"}, {"\"5\" is no layout"}},
        {{"--depth", "0:1"}, {"is made of a grey picture"}},
        {{"--depth", "4:1"}, {"MIN must be below MAX"}},
        {{"--bits", "8,8"}, {"2 layouts for 1 pictures"}}};
    for (const auto& [options, words] : kOptions)
        ExpectFailure(1, {"assemble", fPicture, "-o", fFrames, options[0], options[1]}, words);
}

} // namespace
} // namespace Host
