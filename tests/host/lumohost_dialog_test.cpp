// lumohost and the dialogs of the module: frames chosen in it, scripts played on it, many files.
#include "host/program.h"
#include "host/test_pictures.h"

#include <nlohmann/json.hpp>

namespace Host {
namespace {

using ::testing::HasSubstr;

constexpr const char* kFive = "samples/five-frames.ei";

class Dialogs : public LumohostTest {
protected:
    Run Open(std::vector<std::string> arguments, int status = 0) const
    {
        arguments.insert(arguments.begin(), {"open", Argument(SourceFile(kFive))});
        return RunLumohost(arguments, status);
    }
    bool IsThere(const char* name) const { return std::filesystem::exists(fFolder / name); }
};

TEST_F(Dialogs, FramesAreChosenOneByOneOrAllTogether)
{
    EXPECT_THAT(Open({"--all", "-o", Path("all-%03d.png")}).output,
                HasSubstr("5 of 5 frames written"));
    std::vector<std::string> pictures;
    for (int frame = 1; frame <= 5; ++frame) {
        SCOPED_TRACE(frame);
        Open({"--frame", std::to_string(frame), "-o", Path("one.png")});
        const std::string picture = fFolder.Get("one.png");
        EXPECT_EQ(picture, fFolder.Get("all-00" + std::to_string(frame) + ".png"));
        EXPECT_EQ(std::ranges::count(pictures, picture), 0) << "each is a frame of its own";
        pictures.push_back(picture);
    }
    EXPECT_THAT(Open({"-o", Path("quiet.png")}).messages,
                ::testing::AllOf(HasSubstr("frame 1 of the 5"), HasSubstr("--frame N")));
    EXPECT_EQ(fFolder.Get("quiet.png"), pictures.front());
}

TEST_F(Dialogs, ANumberOutOfRangeIsToldInTheDialogsWords)
{
    for (const char* frame : {"0", "6", "4294967296"}) {
        SCOPED_TRACE(frame);
        EXPECT_THAT(Open({"--frame", frame, "-o", Path("none.png")}, 1).messages,
                    ::testing::AllOf(HasSubstr("A value between 1 and 5"), HasSubstr("(-128)")));
        EXPECT_FALSE(IsThere("none.png"));
    }
    const std::string single = Argument(SourceFile("samples/harbour.img"));
    RunLumohost({"open", single, "--frame", "1", "-o", Path("one.png")});
    EXPECT_THAT(RunLumohost({"open", single, "--frame", "2", "-o", Path("none.png")}, 1).messages,
                HasSubstr("has no frame 2"));
    EXPECT_FALSE(IsThere("none.png"));
}

TEST_F(Dialogs, AreDescribedAndPhotographed)
{
    const Run run = Open({"--describe", "--photograph", Path("dialog.png"), "--theme", "3",
                          "--scale", "2", "-o", Path("none.png")});
    const auto json = nlohmann::json::parse(run.output);
    EXPECT_EQ(json["filter"], "ElectricImage");
    EXPECT_EQ(json["Nm  "], "ElectricImage");
    EXPECT_EQ(json["class"], "PDialog");
    EXPECT_EQ(json["subViews"].back()["class"], "CFramePane");
    EXPECT_THAT(run.output, HasSubstr("This file contains 5 frames."));
    EXPECT_FALSE(IsThere("none.png"));
    const PictureInfo picture = OpenPicture(fFolder / "dialog.png")->Info();
    const auto bounds = json["bounds"];
    EXPECT_LE(picture.width, bounds[2].get<int>() - bounds[0].get<int>());
    EXPECT_GT(picture.width, 400) << "at the scale of 2";
}

TEST_F(Dialogs, ScriptsArePlayedOnThem)
{
    const struct {
        const char *words, *script;
        int status;
        const char* says;
    } rows[] = {
        {"a frame is typed",
         "expect ElectricImage/FrameNumber string 1\n"
         "type 4\n"
         "expect ElectricImage/FrameNumber valueInRange true\n"
         "click Project/Dialog/OKButton\n"
         "expect-window closed\n",
         0, ""},
        {"an expectation fails", "expect ElectricImage/FrameNumber string 2\n", 1, "string"},
        {"the dialog is cancelled", "click Project/Dialog/CancelButton\n", 1, "(-128)"},
        {"the dialog is closed", "close\n", 1, "(-128)"},
        {"the script leaves it open", "type 3\n", 1, "(-128)"},
        {"a mistake in the script", "clack Project/Dialog/OKButton\n", 2, "clack"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        const Run run =
            Open({"--play", Argument(fFolder.Put("script", row.script)), "-o", Path("played.png")},
                 row.status);
        EXPECT_THAT(run.messages, HasSubstr(row.says));
        EXPECT_EQ(IsThere("played.png"), row.status == 0);
        std::filesystem::remove(fFolder / "played.png");
    }
}

TEST_F(Dialogs, ManyFilesGoIntoAFolderAndFailuresStopNobody)
{
    fFolder.Put("broken.ei", "no picture");
    const Run run = RunLumohost({"open", Argument(SourceFile(kFive)),
                                 Argument(SourceFile("samples/harbour.img")), Path("broken.ei"),
                                 "-o", Path("pictures/"), "--jobs", "2", "--frame", "1"},
                                1);
    EXPECT_THAT(run.output, HasSubstr("2 of 3 pictures written"));
    EXPECT_THAT(run.messages, HasSubstr("broken.ei"));
    EXPECT_TRUE(IsThere("pictures/five-frames.png"));
    EXPECT_TRUE(IsThere("pictures/harbour.png"));
    EXPECT_FALSE(IsThere("pictures/broken.png"));
    EXPECT_THAT(
        RunLumohost({"open", Path("a.ei"), Path("b/a.ei"), "-o", Path("pictures")}, 1).messages,
        HasSubstr("would both become"));
}

TEST_F(Dialogs, TheNameOfAFrameHasOnePlaceForItsNumber)
{
    for (const char* name : {"frame.png", "%d-%d.png", "%s.png", "%04.png"})
        EXPECT_THAT(Open({"--all", "-o", Path(name)}, 1).messages,
                    HasSubstr("no place for the frame's number"))
            << name;
}

} // namespace
} // namespace Host
