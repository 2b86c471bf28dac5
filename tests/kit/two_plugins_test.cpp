// Plug-ins of several authors in one process, two of them with the same classes, ids, settings and
// entries: each has its own copy of the toolkit, and nothing of the one is the other's.
#include "driver/dialog_user.h"
#include "driver/export_run.h"
#include "driver/filter_run.h"
#include "driver/plugin_module.h"
#include "pictures/picture_files.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>

namespace {

namespace fs = std::filesystem;
using namespace Host;

Document Sample()
{
    const std::unique_ptr<PictureSource> source = OpenPicture(SAMPLE_PICTURE);
    return Document(*source, SampleDepth::k8);
}

std::vector<uint8_t> BytesOf(const Document& document)
{
    const uint8_t* const first = document.Row(0);
    return {first, first + document.Stride() * static_cast<size_t>(document.Info().height)};
}

std::vector<uint8_t> Silent(const PluginModule& module, const Document& picture, const char* radius)
{
    FilterRun run(module, {}, {{"radius", radius}}, picture, nullptr, "silent");
    return BytesOf(run.Run());
}

// The robot's work in a Soft Glow dialog.
Script GlowScript(const std::string& radius)
{
    return ReadScript("focus SoftGlow/Radius\ntype " + radius +
                          "\nkey Tab\nexpect SoftGlow/Radius floatValue " + radius +
                          "\n"
                          "click Project/Dialog/OKButton\nexpect-window closed\n",
                      "script");
}

std::vector<uint8_t> WithDialog(const PluginModule& module, const Document& picture,
                                const std::string& radius)
{
    DialogUser user(GlowScript(radius), "");
    FilterRun run(module, {}, {}, picture, nullptr, "dialog");
    run.AskUser();
    EXPECT_EQ(user.Finish().status, PlayOutcome::kPlayed) << user.Finish().words;
    return BytesOf(run.Run());
}

void UseContactSheet(const PluginModule& module, const Document& picture)
{
    DialogUser user(ReadScript("expect-window Contact Sheet\nfocus ContactSheet/Columns\ntype 7\n"
                               "key Tab\nexpect ContactSheet/Columns floatValue 7\n"
                               "click Project/Dialog/OKButton\nexpect-window closed\n",
                               "script"),
                    "");
    ExportRun run(module, {}, {}, picture, "sheet");
    run.AskUser();
    EXPECT_EQ(user.Finish().status, PlayOutcome::kPlayed) << user.Finish().words;
    const fs::path sheet = fs::path(SOFT_GLOW).replace_filename("two_plugins_sheet.ppm");
    run.Run(sheet);
    EXPECT_TRUE(fs::remove(sheet));
}

class TwoPlugins : public testing::Test {
protected:
    TwoPlugins()
    {
        std::error_code ignored; // there is none, unless a run before couldn't remove it
        fs::remove(fCopy, ignored);
        fs::copy_file(SOFT_GLOW, fCopy);
        fSecond.emplace(fCopy, PluginKind::kFilter);
    }
    ~TwoPlugins() override
    {
        fSecond.reset();
        std::error_code inUse; // some systems keep libraries until the process ends
        fs::remove(fCopy, inUse);
    }

    // A test has a file of its own, since not every system lets go of it.
    const fs::path fCopy = fs::path(SOFT_GLOW).replace_filename(
        std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) +
        fs::path(SOFT_GLOW).extension().string());
    const Document fPicture = Sample();
    const PluginModule fFirst{SOFT_GLOW, PluginKind::kFilter};
    std::optional<PluginModule> fSecond;
    const std::vector<uint8_t> fNine = Silent(fFirst, fPicture, "9");
    const std::vector<uint8_t> fThirty = Silent(fFirst, fPicture, "30");
};

TEST_F(TwoPlugins, DialogsAndRunsTakeTurnsAndOneGoesBeforeTheOther)
{
    ASSERT_NE(fNine, fThirty);
    EXPECT_EQ(Silent(*fSecond, fPicture, "30"), fThirty);
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        EXPECT_EQ(WithDialog(fFirst, fPicture, "9"), fNine);
        EXPECT_EQ(WithDialog(*fSecond, fPicture, "30"), fThirty);
    }
    fSecond.reset();
    EXPECT_EQ(WithDialog(fFirst, fPicture, "30"), fThirty);
}

// The host opens the others' dialogs in turns of the first, while that is being used.
TEST_F(TwoPlugins, DialogsAreOpenAtOnce)
{
    constexpr int kBeforeTyping = 3; // turns of the first dialog
    constexpr int kWhileTyping = 8;
    const PluginModule sheet(CONTACT_SHEET, PluginKind::kExport);
    DialogUser user(GlowScript("9"), "");
    FilterRun run(fFirst, {}, {}, fPicture, nullptr, "outer");
    std::vector<uint8_t> inner;
    int turns = 0;
    {
        const HostTurn turn([&](HostInputEvent& event) {
            ++turns;
            if (turns == kBeforeTyping)
                inner = WithDialog(*fSecond, fPicture, "30");
            if (turns == kWhileTyping)
                UseContactSheet(sheet, fPicture);
            return turn.TakeOuter(event);
        });
        run.AskUser();
    }
    EXPECT_EQ(user.Finish().status, PlayOutcome::kPlayed) << user.Finish().words;
    EXPECT_GT(turns, kWhileTyping);
    EXPECT_EQ(BytesOf(run.Run()), fNine);
    EXPECT_EQ(inner, fThirty);
}

} // namespace
