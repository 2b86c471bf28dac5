// What lumohost says and leaves behind when something is wrong.
#include "host/program.h"
#include "host/test_pictures.h"

#include <gtest/gtest.h>

namespace Host {
namespace {

using testing::Test;

class FailuresTest : public Test {
protected:
    FailuresTest()
    {
        MadePicture picture(PictureMode::kRgb, 40, 40, 3, Texture);
        WritePicture(picture, fFolder / "p.ppm");
    }

    // Expects that the run fails with the status and says each of the words.
    void ExpectFailure(const std::vector<std::string>& arguments, int status,
                       const std::vector<std::string>& words) const
    {
        const ProgramRun run = RunLumohost(arguments);
        EXPECT_EQ(run.status, status) << run.output << run.messages;
        for (const std::string& word : words)
            EXPECT_NE(run.messages.find(word), std::string::npos) << "\"" << word << "\" in: " << run.messages;
    }

    std::string Path(const char* name) const { return Argument(fFolder / name); }
    std::string Sample(const char* name) const { return Argument(SourceFile(std::string("samples/") + name)); }

    TestFolder fFolder;
};

TEST_F(FailuresTest, MistakesOnTheCommandLineHaveAStatusOfTheirOwn)
{
    ExpectFailure({}, 2, {"assemble", "lumohost COMMAND --help"});
    ExpectFailure({"opne", Sample("harbour.img")}, 2, {"not expected", "opne"});
    ExpectFailure({"open"}, 2, {"file is required"});
    ExpectFailure({"open", Sample("harbour.img"), "--compression", "12"}, 2, {"--compression"});
    const ProgramRun help = RunLumohost({"assemble", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("Examples:"), std::string::npos);
}

TEST_F(FailuresTest, ThePropertyListRefusesBeforeTheModuleIsAsked)
{
    fFolder.Put("picture.gif", "GIF89a");
    ExpectFailure({"open", Path("picture.gif"), "-o", Path("o.png")}, 1, {"\".gif\"", ".IMG, .EI, .EIZ, .EIZZ"});
    ExpectFailure({"save", Path("p.ppm"), "-o", Path("o.ei")}, 1, {"\".ei\"", "It takes .IMG;"});
    MadePicture wide(PictureMode::kGrayscale, 30001, 1, 1, Texture);
    WritePicture(wide, fFolder / "wide.pgm");
    const ProgramRun run = RunLumohost({"save", Path("wide.pgm"), "-o", Path("o.img"), "--verbose"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.messages.find("30001 x 1, the limit is 30000 x 30000"), std::string::npos) << run.messages;
    EXPECT_EQ(run.messages.find("write prepare"), std::string::npos);
    EXPECT_EQ(fFolder.FileCount(), 3);
}

TEST_F(FailuresTest, CodesComeWithTheirTextAndAWayOut)
{
    ExpectFailure({"open", Path("missing.img"), "-o", Path("o.png")}, 1,
                  {"The file or directory could not be found. (-43)", "Check the spelling"});
    fFolder.Put("text.img", "this is no picture at all, though it is long enough for headers");
    ExpectFailure({"open", Path("text.img"), "-o", Path("o.png")}, 1,
                  {"isn't in the format. (-30501)", "lumohost info"});
    ExpectFailure({"info", Path("text.img")}, 1, {"is not an ElectricImage file"});
    ExpectFailure({"open", Sample("rgb-24.ei"), "-o", Path("o.png"), "--memory-limit", "100"}, 1,
                  {"There is not enough memory. (-108)", "--memory-limit"});
    ExpectFailure({"open", Sample("rgb-24.ei"), "-o", Path("o.png"), "--memory-limit", "lots"}, 1, {"is no size"});
    ExpectFailure({"open", Sample("rgb-24.ei"), "-o", Path("no/folder/o.png")}, 1, {"(-43)"});
    ExpectFailure({"selectors", "--module", Path("missing.so")}, 1, {"can't be loaded", "--module PATH"});
    ExpectFailure({"open", Sample("five-frames.ei"), "-o", Path("o.png"), "--frame", "2"}, 1,
                  {"frame 2 can't be chosen", "Leave --frame out"});
    EXPECT_EQ(fFolder.FileCount(), 2) << "no picture was left behind";
}

TEST_F(FailuresTest, AStoppedSaveLeavesTheOldFile)
{
    fFolder.Put("old.img", "old");
    ExpectFailure({"save", Path("p.ppm"), "-o", Path("old.img"), "--abort-at", "20"}, 130, {"canceled. (-128)"});
    EXPECT_EQ(fFolder.Get("old.img"), "old");
    ExpectFailure({"save", Path("p.ppm"), "-o", Path("new.img"), "--abort-at", "1"}, 130, {});
    EXPECT_EQ(fFolder.FileCount(), 2);
}

TEST_F(FailuresTest, AStoppedOrBrokenOpenLeavesTheOldPicture)
{
    fFolder.Put("o.png", "old");
    ExpectFailure({"open", Sample("rgb-24.eiz"), "-o", Path("o.png"), "--abort-at", "100"}, 130, {"canceled. (-128)"});
    const std::filesystem::path whole = SourceFile("samples/rgb-24.eiz");
    std::filesystem::copy_file(whole, fFolder / "cut.eiz");
    std::filesystem::resize_file(fFolder / "cut.eiz", std::filesystem::file_size(whole) / 2);
    ExpectFailure({"open", Path("cut.eiz"), "-o", Path("o.png")}, 1, {"(-30501)"});
    ExpectFailure({"info", Path("cut.eiz")}, 1, {"frames with faults"});
    EXPECT_EQ(fFolder.Get("o.png"), "old");
    EXPECT_EQ(fFolder.FileCount(), 3);
}

TEST_F(FailuresTest, APictureThatCantBeReadSavesNothing)
{
    const std::string whole = fFolder.Get("p.ppm");
    fFolder.Put("cut.ppm", whole.substr(0, whole.size() / 2));
    ExpectFailure({"save", Path("cut.ppm"), "-o", Path("o.img")}, 1, {"prematurely reached. (-39)"});
    fFolder.Put("cut.png", "\x89PNG\r\n\x1a\n");
    ExpectFailure({"save", Path("cut.png"), "-o", Path("o.img")}, 1, {"cut.png"});
    EXPECT_EQ(fFolder.FileCount(), 3);
}

TEST_F(FailuresTest, AssembleSaysWhatDoesNotFit)
{
    ExpectFailure({"assemble", Path("p.ppm"), "-o", Path("o.ei"), "--bits", "4"}, 1, {"4 bits hold 16", "--reduce"});
    ExpectFailure({"assemble", Path("p.ppm"), "-o", Path("o.ei"), "--bits", "5"}, 1, {"\"5\" is no layout"});
    ExpectFailure({"assemble", Path("p.ppm"), "-o", Path("o.ei"), "--depth", "0:1"}, 1, {"is made of a grey picture"});
    ExpectFailure({"assemble", Path("p.ppm"), "-o", Path("o.ei"), "--depth", "4:1"}, 1, {"MIN must be below MAX"});
    ExpectFailure({"assemble", Path("p.ppm"), "-o", Path("o.ei"), "--bits", "8,8"}, 1, {"2 layouts for 1 pictures"});
    EXPECT_EQ(fFolder.FileCount(), 1);
}

} // namespace
} // namespace Host
