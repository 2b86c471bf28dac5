// Robot scripts as they are read: what the lines mean, and what is said to mistakes in them.
#include "robot/script.h"
#include "support/testing.h"

namespace {

using namespace Host;

TEST(Scripts, HaveAnActionALine)
{
    const Script script = ReadScript("\xEF\xBB\xBF# nothing\r\n"
                                     "\n"
                                     "click A/B right x2 shift alt # why not\r\n"
                                     "\tpress 3,-4.5\n"
                                     "type  two # three \n"
                                     "key F12 control\n"
                                     "expect A/B Fcs true   # a comment\n"
                                     "expect A/B string 50% #1\n"
                                     "expect A/B string \"a # \\\" b \" # quoted\n"
                                     "monitors 800x600+0+0 640x480-640+20 # two\n"
                                     "expect-window Frame #3",
                                     "script");
    ASSERT_EQ(script.actions.size(), 9U);
    const Action& click = script.actions[0];
    EXPECT_EQ(click.line, 3);
    EXPECT_EQ(click.view.text, "A/B");
    EXPECT_FALSE(click.view.point);
    EXPECT_EQ(click.button, MouseButton::kRight);
    EXPECT_EQ(click.count, 2);
    EXPECT_EQ(click.modifiers, (std::vector<std::uint32_t>{0x10, 0x12}));
    ASSERT_TRUE(script.actions[1].view.point);
    EXPECT_EQ(script.actions[1].view.point->y, -4.5);
    EXPECT_EQ(script.actions[2].text, " two # three ");
    EXPECT_EQ(script.actions[3].key, 0x7BU);
    EXPECT_EQ(script.actions[4].property, "Fcs");
    EXPECT_EQ(script.actions[4].text, "true");
    EXPECT_EQ(script.actions[5].text, "50%");
    EXPECT_EQ(script.actions[6].text, "\"a # \\\" b \"");
    EXPECT_EQ(script.actions[7].monitors,
              (std::vector<ScriptRect>{{0, 0, 800, 600}, {-640, 20, 0, 500}}));
    EXPECT_EQ(script.actions[8].text, "Frame #3");
}

TEST(Scripts, TellMistakesWithTheirPlace)
{
    struct Row {
        const char* text;
        const char* words; // how the message begins after the script's name
    };
    const Row rows[] = {
        {"clack A", ":1:1: \"clack\" was found, but one of click, press"},
        {"\n  click", ":2:8: the line ends, but a view's id"},
        {"click A lef", ":1:9: \"lef\" was found, but left, right"},
        {"click A x0", ":1:9: \"x0\" was found, but left, right"},
        {"press A left", ":1:9: \"left\" was found, but the end of the line"},
        {"wheel A 1 up", ":1:11: \"up\" was found, but the notches upward"},
        {"wheel A 1e9 0", ":1:9: \"1e+09\" was found, but the notches to the right"},
        {"key return", ":1:5: \"return\" was found, but one of Tab, Return"},
        {"key A meta", ":1:7: \"meta\" was found, but shift, control or alt"},
        {"hold A", ":1:6: \"A\" was found, but shift, control or alt"},
        {"resize 10 nan", ":1:11: \"nan\" was found, but a height in units from 0"},
        {"scale 0", ":1:7: \"0\" was found, but a scale from 0.25 to 8"},
        {"theme 1.5", ":1:7: \"1.5"},
        {"wait -1", ":1:6: \"-1\" was found, but a time in seconds from 0"},
        {"shot # none", ":1:6: the line ends, but a file's name"},
        {"expect A", ":1:9: the line ends, but a key of the description"},
        {"expect-window", ":1:14: the line ends, but open, closed or a title"},
        {"place 10", ":1:9: the line ends, but a top in pixels"},
        {"monitors 0x5+0+0", ":1:10: \"0x5+0+0\" was found, but a monitor as WIDTHxHEIGHT"},
        {"monitors 8x5+0+0 8x5+0", ":1:18: \"8x5+0\" was found, but a monitor as"},
        {"close now", ":1:7: \"now\" was found, but the end of the line"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            ReadScript(row.text, "s");
            ADD_FAILURE() << "nothing was thrown";
        } catch (const ScriptError& error) {
            EXPECT_EQ(std::string(error.what()).substr(1, std::string(row.words).size()),
                      row.words);
        }
    }
}

} // namespace
