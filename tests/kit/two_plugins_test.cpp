// Two plug-ins in one process, with the same classes, ids, settings and entries in them: each has
// its own copy of the toolkit, and nothing of the one is the other's.
#include "driver/dialog_user.h"
#include "driver/filter_run.h"
#include "driver/plugin_module.h"
#include "pictures/picture_files.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

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

// The robot sets the radius in the module's dialog.
std::vector<uint8_t> WithDialog(const PluginModule& module, const Document& picture,
                                const std::string& radius)
{
    DialogUser user(ReadScript("focus SoftGlow/Radius\ntype " + radius +
                                   "\nclick Project/Dialog/OKButton\nexpect-window closed\n",
                               "script"),
                    "");
    FilterRun run(module, {}, {}, picture, nullptr, "dialog");
    run.AskUser();
    EXPECT_EQ(user.Finish().status, PlayOutcome::kPlayed) << user.Finish().words;
    return BytesOf(run.Run());
}

TEST(TwoPlugins, DialogsAndRunsTakeTurnsAndOneGoesBeforeTheOther)
{
    const fs::path copy = fs::path(SOFT_GLOW).replace_filename(
        "another_glow" + fs::path(SOFT_GLOW).extension().string());
    std::error_code ignored; // there is none, unless a run before couldn't remove it
    fs::remove(copy, ignored);
    fs::copy_file(SOFT_GLOW, copy);
    {
        const Document picture = Sample();
        const PluginModule first(SOFT_GLOW, PluginKind::kFilter);
        auto second = std::make_unique<PluginModule>(copy, PluginKind::kFilter);
        const auto nine = Silent(first, picture, "9");
        const auto thirty = Silent(*second, picture, "30");
        ASSERT_NE(nine, thirty);
        for (int round = 0; round < 2; ++round) {
            SCOPED_TRACE(round);
            EXPECT_EQ(WithDialog(first, picture, "9"), nine);
            EXPECT_EQ(WithDialog(*second, picture, "30"), thirty);
        }
        second.reset();
        EXPECT_EQ(WithDialog(first, picture, "30"), thirty);
    }
    std::error_code inUse; // some systems keep libraries until the process ends
    fs::remove(copy, inUse);
}

} // namespace
