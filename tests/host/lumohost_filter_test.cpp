// Filters and exports through the whole program, with the example plug-ins.
#include "host/program.h"
#include "host/test_pictures.h"

namespace Host {
namespace {

class FilterTest : public LumohostTest {
protected:
    std::unique_ptr<PictureSource> Filtered(const std::string& picture,
                                            std::vector<std::string> further)
    {
        std::vector<std::string> arguments = {"filter",  picture, "--module",
                                              SOFT_GLOW, "-o",    Path("filtered.pam")};
        std::ranges::move(further, std::back_inserter(arguments));
        RunLumohost(arguments);
        return OpenPicture(fFolder / "filtered.pam");
    }
};

// A white pixel on black at x 20, y 12, and half transparent on the right of column 30.
int Spark(int32_t y, int32_t at)
{
    const int32_t x = at / 4;
    return at % 4 == 3 ? (x > 30 ? 128 : 255) : x == 20 && y == 12 ? 255 : 0;
}

TEST_F(FilterTest, LightReachesItsRadiusAndNoFurtherAndLeavesTheAlphaAlone)
{
    MadePicture spark(PictureMode::kRgb, 41, 25, 4, Spark);
    WritePicture(spark, fFolder / "spark.pam");
    for (const char* const depth : {"8", "16", "32"}) {
        SCOPED_TRACE(depth);
        const auto glow = Filtered(Path("spark.pam"), {"--set", "radius=6", "--set", "amount=100",
                                                       "--set", "mode=screen", "--depth", depth});
        for (int32_t y = 0; y < 25; ++y) {
            const uint8_t* const row = glow->Row(y);
            for (int32_t x = 0; x < 41; ++x) {
                const bool reached = std::abs(x - 20) <= 3 && std::abs(y - 12) <= 3;
                const bool beyond = std::abs(x - 20) > 6 || std::abs(y - 12) > 6;
                ASSERT_EQ(row[4 * x + 3], x > 30 ? 128 : 255) << x << ", " << y;
                ASSERT_TRUE(!reached || row[4 * x] > 0) << x << ", " << y;
                ASSERT_TRUE(!beyond || row[4 * x] == 0) << x << ", " << y;
            }
        }
    }
}

TEST_F(FilterTest, TilesLeaveNoSeamsAndARadiusMayPassThePicture)
{
    MadePicture waves(PictureMode::kGrayscale, 700, 530, 1, [](int32_t y, int32_t x) {
        return static_cast<int>(127.5 + 127 * std::sin(x / 40.0) * std::cos(y / 50.0));
    });
    WritePicture(waves, fFolder / "waves.pgm");
    const auto glow = Filtered(Path("waves.pgm"), {"--set", "radius=500"});
    std::vector<uint8_t> last;
    for (int32_t y = 0; y < 530; ++y) {
        const uint8_t* const row = glow->Row(y);
        for (int32_t x = 1; x < 700; ++x) {
            ASSERT_LE(std::abs(row[x] - row[x - 1]), 6) << x << ", " << y;
            ASSERT_TRUE(y == 0 || std::abs(row[x] - last[static_cast<size_t>(x)]) <= 6)
                << x << ", " << y;
        }
        last.assign(row, row + 700);
    }
}

TEST_F(FilterTest, AMaskHoldsBackWhatIsNotSelected)
{
    MadePicture picture(PictureMode::kRgb, 40, 30, 3, Texture);
    MadePicture mask(PictureMode::kGrayscale, 40, 30, 1, [](int32_t, int32_t x) {
        return x < 10 ? 0 : x < 20 ? 128 : 255;
    });
    WritePicture(picture, fFolder / "p.ppm");
    WritePicture(mask, fFolder / "m.pgm");
    const Bytes before = AllPixels(picture);
    const Bytes all = AllPixels(*Filtered(Path("p.ppm"), {}));
    const Bytes masked = AllPixels(*Filtered(Path("p.ppm"), {"--mask", Path("m.pgm")}));
    for (size_t i = 0; i < all.size(); ++i) {
        const int m = i / 3 % 40 < 10 ? 0 : i / 3 % 40 < 20 ? 128 : 255;
        ASSERT_EQ(masked[i], (all[i] * m + before[i] * (255 - m) + 127) / 255) << i;
    }
}

TEST_F(FilterTest, AnExportWritesItsSheet)
{
    MadePicture picture(PictureMode::kRgb, 40, 20, 3,
                        [](int32_t, int32_t at) { return at % 3 == 0 ? 200 : 40; });
    WritePicture(picture, fFolder / "p.ppm");
    for (const char* const depth : {"8", "16", "32"}) {
        SCOPED_TRACE(depth);
        RunLumohost({"export", Path("p.ppm"), "--module", CONTACT_SHEET, "--set", "columns=2",
                     "--set", "rows=1", "--set", "size=10", "--set", "gap=3", "--depth", depth,
                     "-o", Path("sheet.ppm")});
        const auto sheet = OpenPicture(fFolder / "sheet.ppm");
        EXPECT_EQ(sheet->Info().width, 2 * 10 + 3 * 3);
        EXPECT_EQ(sheet->Info().height, 5 + 2 * 3);
        const auto red = [&](int32_t x, int32_t y) { return int{sheet->Row(y)[3 * x + 1]}; };
        EXPECT_EQ(red(2, 5), 255) << "paper";
        EXPECT_EQ(red(3, 3), 40) << "the first print's corner";
        EXPECT_EQ(red(25, 7), 40) << "the last print's corner";
        EXPECT_EQ(red(25, 8), 255) << "paper below";
    }
}

// The export's dialog: what is set there is in the sheet and in the next silent one; cancelled, it
// changes nothing.
TEST_F(FilterTest, AnExportAsksInItsDialog)
{
    WritePicture({PictureMode::kRgb, 40, 20, 3, Texture}, fFolder / "p.ppm");
    const auto run = [&](const std::string& script, int status) {
        std::vector<std::string> arguments = {"export",      Path("p.ppm"), "--module",
                                              CONTACT_SHEET, "-o",          Path("sheet.ppm")};
        if (!script.empty())
            arguments.insert(arguments.end(), {"--keep-settings", "--play",
                                               Argument(fFolder.Put("script.txt", script))});
        return RunLumohost(arguments, status).messages;
    };
    const auto columns = [&] {
        return (OpenPicture(fFolder / "sheet.ppm")->Info().width - 16) / 56;
    };
    run("focus ContactSheet/Columns\ntype 5\nkey Tab\nclick Project/Dialog/OKButton\n", 0);
    EXPECT_EQ(columns(), 5);
    run("", 0);
    EXPECT_EQ(columns(), 5) << "a silent run takes the last";
    const std::string messages =
        run("focus ContactSheet/Columns\ntype 7\nkey Tab\nclick Project/Dialog/CancelButton\n", 1);
    EXPECT_NE(messages.find("(-128)"), std::string::npos) << messages;
    run("focus ContactSheet/Columns\nexpect ContactSheet/Columns floatValue 5\n"
        "click Project/Dialog/OKButton\n",
        0);
    EXPECT_EQ(columns(), 5);
}

// The dialog's place is kept with the settings.
TEST_F(FilterTest, ADialogOpensWhereItWasLeft)
{
    WritePicture({PictureMode::kRgb, 40, 20, 3, Texture}, fFolder / "p.ppm");
    for (const char* const script :
         {"place 300 200\nresize 420 170\nclick Project/Dialog/OKButton\n",
          "expect ContactSheet/Dialog globalBounds [300,200,720,370]\n"
          "click Project/Dialog/OKButton\n"}) {
        SCOPED_TRACE(script);
        RunLumohost({"export", Path("p.ppm"), "--module", CONTACT_SHEET, "-o", Path("sheet.ppm"),
                     "--keep-settings", "--play", Argument(fFolder.Put("script.txt", script))});
    }
}

class GlowDialog : public FilterTest {
protected:
    GlowDialog() { WritePicture({PictureMode::kRgb, 300, 200, 3, Texture}, fFolder / "p.ppm"); }

    // Has the robot play a script on the dialog.
    Run Play(const std::string& script, int status = 0, std::vector<std::string> further = {})
    {
        further.insert(further.begin(),
                       {"filter", Path("p.ppm"), "--module", SOFT_GLOW, "-o", Path("filtered.pam"),
                        "--play", Argument(fFolder.Put("script.txt", script))});
        return RunLumohost(further, status);
    }
};

TEST_F(GlowDialog, ChangesAreUndoneAndZoomsAreSeenInTheTitle)
{
    Play("focus SoftGlow/Radius\ntype 30\nkey Tab\n"
         "focus SoftGlow/Radius\ntype 40\nkey Tab\n"
         "click SoftGlow/Undo\nwait 1\n"
         "expect SoftGlow/Radius floatValue 30\n"
         "expect-window Soft Glow 100%\n"
         "press kesto/editSlider/slider\nmove 350,42\nwait 1\nmove 2000,42\nwait 1\nrelease\n"
         "expect SoftGlow/Radius floatValue 100\n"
         "click SoftGlow/Undo\nwait 1\n"
         "expect SoftGlow/Radius floatValue 30\n"
         "click Project/Command/ZoomIn\nwait 1\n"
         "expect-window Soft Glow 200%\n"
         "click Project/Dialog/PreviewPane left control alt\n"
         "expect-window Soft Glow 100%\n"
         "press Project/Dialog/PreviewPane\nmove 20,20\nwait 1\nrelease\nwait 1\n"
         "click Project/Dialog/OKButton\n");
}

TEST_F(GlowDialog, CancelledLeavesNothingBehind)
{
    for (const char* const script :
         {"click Project/Dialog/CancelButton\n", "close\n", "key Escape\n", "wait 1\n"}) {
        SCOPED_TRACE(script);
        const std::string messages = Play(script, 1).messages;
        EXPECT_NE(messages.find("(-128)"), std::string::npos) << messages;
        EXPECT_FALSE(std::filesystem::exists(fFolder / "filtered.pam"));
    }
}

class WrongRuns : public FilterTest {
protected:
    WrongRuns() { WritePicture({PictureMode::kRgb, 40, 40, 3, Texture}, fFolder / "p.ppm"); }

    void ExpectRefusal(const char* command, const std::string& picture, const char* module,
                       std::vector<std::string> further, const std::vector<std::string>& words,
                       int status = 1) const
    {
        further.insert(further.begin(),
                       {command, picture, "--module", module, "-o", Path("out.ppm")});
        ExpectFailure(status, further, words);
    }

    const std::string fPicture = Path("p.ppm");
};

TEST_F(WrongRuns, SettingsAreRefusedByNameWithWhatIsWanted)
{
    const std::pair<std::vector<std::string>, std::vector<std::string>> rows[] = {
        {{"--set", "rdius=3"}, {"no setting rdius", "radius, amount, mode"}},
        {{"--set", "radius=501"}, {"radius can't be \"501\"", "a whole number from 1 to 500"}},
        {{"--set", "amount=5x"}, {"\"5x\""}},
        {{"--set", "mode=burn"}, {"\"burn\"", "screen, lighten or soft_light"}},
        {{"--set", "=5"}, {"NAME=VALUE"}},
        {{"--set", "radius=5", "--set", "radius=6"}, {"radius is given twice"}},
        {{"--set", "radius=5", "--describe"}, {"with --set no dialog is shown"}},
    };
    for (const auto& [settings, words] : rows)
        ExpectRefusal("filter", fPicture, SOFT_GLOW, settings, words);
    ExpectRefusal("export", fPicture, CONTACT_SHEET, {"--set", "paper=red"},
                  {"no setting paper", "columns, rows, size, gap"});
}

TEST_F(WrongRuns, ModulesAndPicturesThatDontFitAreToldApart)
{
    WritePicture({PictureMode::kIndexed, 4, 4, 1, Texture}, fFolder / "palette.png");
    WritePicture({PictureMode::kGrayscale, 32768, 1, 1, Texture}, fFolder / "wide.pgm");
    WritePicture({PictureMode::kGrayscale, 9, 9, 1, Texture}, fFolder / "small.pgm");
    const std::vector<std::string> limit = {"32768 x 1", "32767"};
    ExpectFailure(2, {"filter", fPicture, "-o", Path("out.ppm")}, {"--module is required"});
    ExpectRefusal("filter", fPicture, SIDECAR_MODULE, {}, {"isn't a filter", "Format"});
    ExpectRefusal("export", fPicture, SOFT_GLOW, {}, {"isn't an export", "Filter"});
    ExpectRefusal("filter", fPicture, SOFT_GLOW, {"--depth", "12"}, {"--depth"}, 2);
    ExpectRefusal("filter", Path("palette.png"), SOFT_GLOW, {}, {"indexed"});
    ExpectRefusal("filter", Path("wide.pgm"), SOFT_GLOW, {}, limit);
    ExpectRefusal("export", Path("wide.pgm"), CONTACT_SHEET, {}, limit);
    ExpectRefusal("filter", fPicture, SOFT_GLOW, {"--mask", Path("small.pgm")},
                  {"9 x 9", "40 x 40"});
    ExpectRefusal("filter", fPicture, SOFT_GLOW, {"--mask", fPicture}, {"not grey but RGB"});
    ExpectRefusal("filter", fPicture, SOFT_GLOW, {"--abort-at", "1"}, {"(-128)"}, 130);
    ExpectRefusal("export", fPicture, CONTACT_SHEET, {"--abort-at", "3"}, {"can't export"});
}

} // namespace
} // namespace Host
