// Scripts played on the windows of layouts: each .play of this folder on the layout that its first
// line names, and what comes of scripts that can't be played to their end.
#include "platform/input/keyboard.h"
#include "robot/play_files.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

namespace {

namespace fs = std::filesystem;

class PlayFiles : public testing::TestWithParam<std::string> {};

TEST_P(PlayFiles, ComeOutAsExpected)
{
    ExpectPlays(GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, PlayFiles, testing::ValuesIn(PlayNames()),
                         [](const auto& row) { return row.param; });

TEST(Plays, EndAtTheFirstThingThatIsNotAsExpected)
{
    struct Row {
        const char* script;
        Host::PlayOutcome::Status status;
        const char* words;
    };
    using enum Host::PlayOutcome::Status;
    const Row rows[] = {
        {"", kPlayed, ""},
        {"\nexpect Robot/First Vsbl false\nexpect Robot/None Vsbl true", kNotAsExpected,
         "s:2: expect Robot/First Vsbl: wanted false, found true"},
        {"expect Robot/First Colour red", kNotAsExpected,
         "s:1: expect Robot/First Colour: wanted red, found nothing under this key"},
        {"expect Robot/Label Nm Second", kNotAsExpected,
         "s:1: expect Robot/Label Nm: wanted Second, found \"Two buttons\""},
        {"expect Robot/Label Nm \"Two buttons\" # quoted", kPlayed, ""},
        {"move -1e300,1e300\nexpect 9000,0 id x", kNotAsExpected,
         "s:2: expect 9000,0 id: wanted x, found no view there"},
        {"move Robot/First\nexpect-cursor hand", kNotAsExpected,
         "s:2: expect-cursor: wanted hand, found arrow"},
        {"click Robot/None", kNotAsExpected,
         "s:1: Robot/None: no open window has a view of this id"},
        {"expect-window closed", kNotAsExpected,
         "s:1: expect-window: wanted closed, found windows with the titles \"Buttons\""},
        {"close\nexpect-window closed\nwait 0.1\nclick Robot/First", kTrouble,
         "s:4: no window is open that this line could be about"},
        {"describe /no/such/folder/x.json", kTrouble,
         "s:1: /no/such/folder/x.json: the file can't be written"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.script);
        const Host::PlayOutcome outcome = PlayOn("buttons.vex", Host::ReadScript(row.script, "s"));
        EXPECT_EQ(outcome.status, row.status);
        EXPECT_EQ(outcome.words, row.words);
    }
}

TEST(Plays, LetGoOfWhatTheyHold)
{
    using Platform::Key;
    for (const char* script :
         {"hold shift\nhold control\nhold alt", "hold control\npress Robot/First\nclick Robot/None",
          "press Robot/First\nclose\nexpect-window open"}) {
        SCOPED_TRACE(script);
        PlayOn("buttons.vex", Host::ReadScript(script, "s"));
        for (const Key key : {Key::kShift, Key::kControl, Key::kAlt, Key::kLeftButton})
            EXPECT_FALSE(Platform::IsKeyDown(key, Platform::KeyMoment::kNow))
                << static_cast<int>(key);
    }
}

// The page for readers shows one script; it is to come out as it says.
TEST(Plays, ComeOutAsTheirPageSays)
{
    std::ifstream file(fs::path(SIDECAR_SOURCE_DIR) / "docs" / "robot.md");
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    const std::string fence = "```play\n";
    const std::size_t start = page.find(fence) + fence.size();
    const std::string script = page.substr(start, page.find("```", start) - start);
    ASSERT_NE(script.find("expect"), std::string::npos);
    EXPECT_EQ(PlayOn("fields.vex", Host::ReadScript(script, "robot.md")).words, "");
}

TEST(Plays, LeaveTheMessagesOfTheirActions)
{
    const TemporaryFolder folder;
    PlayOn("buttons.vex", Host::ReadScript("click Robot/First\nkey Tab\nclick Robot/Second", "s"),
           {}, (folder / "messages.json").string());
    const std::string lines = folder.Get("messages.json");
    EXPECT_EQ(lines.substr(0, lines.find('\n')),
              R"({"kind":"command","id":"Robot/First","source":"Robot/First"})");
    EXPECT_NE(lines.find(R"("source":"Robot/Second"})"), std::string::npos);
}

} // namespace
