// The number field in a window, under a user's hands.
#include "controls/field_window.h"
#include "support/testing.h"

namespace {

using namespace Kesto;
using Testing::FieldStage;

constexpr std::uint32_t kShift = 0x10;

struct Keys {
    std::uint32_t key = 0;
    std::u32string_view text = {};
};

struct Row {
    const char* name;
    std::function<void(CEditNumber&)> set;
    std::vector<Keys> keys;
    double value;
    std::string_view text;
    std::string_view sent;
    std::vector<std::string> alerts = {};
    bool stays = true; // the focus
};

void Percent(CEditNumber& field)
{
    field.SetDecimal(true);
    field.SetValueAndRange(5, 0, 100);
}

void Angle(CEditNumber& field)
{
    field.SetWrapAround(true);
    field.SetValueAndRange(350, 0, 360);
}

const std::string kRange = "A value between 0 and 100 is\rrequired. Closest value inserted.";
const std::string kInvalid = "Invalid numeric entry. A value between 0 and 100 is required.  "
                             "Previous value inserted.";

constexpr Keys kTab{kKeyCode_Tab};

const Row kRows[] = {
    {"a number is live, and committed by Return",
     Percent,
     {{0, U"42"}, {kKeyCode_Return}},
     42,
     "42",
     "4:4 4:42 2:42"},
    {"and by Tab", Percent, {{0, U"7"}, kTab}, 7, "7", "4:7 5:7", {}, false},
    {"an expression", Percent, {{0, U"2*(3+4)"}, kTab}, 14, "14", "4:2 4:14 5:14", {}, false},
    {"what prints as the limit is the limit",
     Percent,
     {{0, U"100.004"}, kTab},
     100,
     "100",
     "4:1 4:10 4:100 5:100",
     {},
     false},
    {"beyond the range: the closest, and the focus stays",
     Percent,
     {{0, U"101"}, kTab},
     100,
     "100",
     "4:1 4:10 4:100",
     {kRange}},
    {"Return beyond the range",
     Percent,
     {{0, U"101"}, {kKeyCode_Return}},
     100,
     "100",
     "4:1 4:10 4:100 2:100",
     {kRange}},
    {"an overflow counts as too large",
     Percent,
     {{0, U"9*1"}, {0, U"0"}, kTab},
     90,
     "90",
     "4:9 4:90 5:90",
     {},
     false},
    {"no number: the one before, and the focus stays",
     Percent,
     {{0, U"2*(3+"}, kTab},
     5,
     "5",
     "4:2",
     {kInvalid}},
    {"no number, silently",
     [](CEditNumber& field) {
         Percent(field);
         field.SetTextOptions(kEdit_NoInvalidValueAlert);
     },
     {{0, U"("}, kTab},
     5,
     "5",
     "5:5",
     {},
     false},
    {"too large, silently",
     [](CEditNumber& field) {
         Percent(field);
         field.SetTextOptions(kEdit_NoRangeAlert);
     },
     {{0, U"999"}, kTab},
     100,
     "100",
     "4:9 4:99 4:100 5:100",
     {},
     false},
    {"nothing is no number", Percent, {{kKeyCode_Delete}, kTab}, 5, "5", "", {kInvalid}},
    {"letters don't get in", Percent, {{0, U"4x2"}, kTab}, 42, "42", "4:4 4:42 5:42", {}, false},
    {"a sign needs a negative minimum", Percent, {{0, U"-3"}, kTab}, 3, "3", "4:3 5:3", {}, false},
    {"and has one",
     [](CEditNumber& field) { field.SetRange(-1, 9); },
     {{0, U"-1"}, kTab},
     -1,
     "-1",
     "4:-1 5:-1",
     {},
     false},
    {"no expressions: no operators",
     [](CEditNumber& field) {
         Percent(field);
         field.SetNoExpressions(true);
     },
     {{0, U"2*3"}, kTab},
     23,
     "23",
     "4:2 4:23 5:23",
     {},
     false},
    {"full-width digits",
     [](CEditNumber& field) {
         Percent(field);
         field.SetNoExpressions(true);
     },
     {{0, U"\uFF11\uFF12"}, kTab},
     12,
     "12",
     "4:1 4:12 5:12",
     {},
     false},
    {"arrows step round",
     [](CEditNumber& field) {
         Angle(field);
         field.SetIncrements(2, 20);
     },
     {{kKeyCode_Up}, {kKeyCode_Up}, {kKeyCode_Up}, {kKeyCode_Up}, {kKeyCode_Up}, {kKeyCode_Up}},
     2,
     "2",
     "3:352 3:354 3:356 3:358 3:0 3:2"},
    {"down from the least",
     [](CEditNumber& field) {
         Angle(field);
         field.SetValue(0);
     },
     {{kKeyCode_Down}},
     359,
     "359",
     "3:359"},
    {"a field without an id says nothing, and follows",
     [](CEditNumber& field) {
         Percent(field);
         field.SetID({});
     },
     {{0, U"42"}, kTab},
     42,
     "42",
     "",
     {},
     false},
    {"a rounded limit holds nobody",
     [](CEditNumber& field) { field.SetValueAndRange(-12.5, -12.5, 100); },
     {kTab},
     -12.5,
     "-13",
     "5:-12.5",
     {},
     false},
    {"leaving it as it was is a commit", Percent, {kTab}, 5, "5", "5:5", {}, false},
    {"back to what it was is news too",
     Percent,
     {{0, U"51"}, {kKeyCode_Backspace}, kTab},
     5,
     "5",
     "4:51 4:5 5:5",
     {},
     false},
};

TEST(NumberField, DoesWhatKeysSay)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        FieldStage stage;
        auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
        row.set(*made);
        CEditNumber& field = stage.Open(std::move(made));
        for (const Keys& keys : row.keys) {
            if (keys.key != 0)
                stage.Press(keys.key);
            stage.Type(keys.text);
        }
        EXPECT_EQ(field.GetValue(), row.value);
        EXPECT_EQ(field.GetText(), row.text);
        EXPECT_EQ(stage.Sent(), row.sent);
        EXPECT_EQ(stage.alerts.texts, row.alerts);
        EXPECT_EQ(field.IsBullseye(), row.stays);
    }
}

TEST(NumberField, StepsFurtherWithShift)
{
    FieldStage stage;
    auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
    Percent(*made);
    stage.Open(std::move(made));
    stage.Hold(kShift, true);
    stage.Press(kKeyCode_Up);
    stage.Hold(kShift, false);
    EXPECT_EQ(stage.Sent(), "3:15");
}

// A field in no window keeps value and text, and is asked as one on the screen is.
TEST(NumberField, ReadsWhatItWasGivenAsText)
{
    const struct {
        const char* name;
        const char* text;
        bool valid, inRange;
        double reads;
    } rows[] = {
        {"what prints as the limit", "100.004", true, true, 100.004},
        {"beyond it", "100.006", true, false, 100.006},
        {"an overflow", "9e307*9e307", true, false, kOverflowValue},
        {"nothing", "", false, true, 5},
        {"half an expression", "2*(3+", false, true, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CEditNumber field;
        Percent(field);
        field.SetText(row.text);
        EXPECT_EQ(field.IsTextValid(), row.valid);
        EXPECT_EQ(field.IsTextInRange(), row.inRange);
        EXPECT_EQ(field.ReadText(), row.reads);
    }
    CEditNumber field;
    Percent(field);
    field.SetText(std::string(400, '9'));
    EXPECT_TRUE(field.CanSurrender(true));
    EXPECT_EQ(field.GetText(), "100");
}

TEST(NumberField, TakesTheClientsWaysBetweenTextsAndValues)
{
    int parsed = 0;
    CEditNumber field;
    Percent(field);
    field.SetFormatter(
        [](double value, CText& text, void*) {
            text = value == 50 ? "half" : "";
            return value == 50;
        },
        nullptr);
    field.SetParser(
        [](const CText& text, double& value, void* data) {
            ++*static_cast<int*>(data);
            value = text == "half" ? 50 : std::nan("");
            return text != "none";
        },
        &parsed);
    field.SetValue(50);
    EXPECT_EQ(field.GetText(), "half");
    EXPECT_EQ(field.ReadText(), 50);
    field.SetValue(7);
    EXPECT_EQ(field.GetText(), "7") << "the formatter refused";
    for (const char* text : {"what is no number", "none"}) {
        SCOPED_TRACE(text);
        field.SetText(text);
        EXPECT_FALSE(field.IsTextValid());
        EXPECT_TRUE(field.Commit()) << "no alert for what nobody sees";
        EXPECT_EQ(field.GetValue(), 7);
    }
    EXPECT_GT(parsed, 0);
}

TEST(NumberField, LeavesTheIndeterminateStateByAClickAStepOrTyping)
{
    const struct {
        const char* name;
        std::function<void(FieldStage&)> act;
        const char* sent;
        const char* text;
    } rows[] = {
        {"a click",
         [](FieldStage& stage) {
             stage.Click({50, 22});
         },
         "2:5", "5"},
        {"typing", [](FieldStage& stage) { stage.Focus(), stage.Type(U"6"); }, "4:6", "6"},
        {"a step", [](FieldStage& stage) { stage.Focus(), stage.Press(kKeyCode_Up); }, "3:6", "6"},
        {"passing by doesn't", [](FieldStage& stage) { stage.Focus(), stage.Press(kKeyCode_Tab); },
         "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FieldStage stage;
        auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
        Percent(*made);
        CEditNumber& field = stage.Open(std::move(made));
        field.SetIndeterminate(true);
        EXPECT_FALSE(field.IsBullseye());
        EXPECT_EQ(field.GetText(), "");
        stage.Sent();
        row.act(stage);
        EXPECT_EQ(stage.Sent(), row.sent);
        EXPECT_EQ(field.GetText(), row.text);
    }
}

TEST(NumberField, SaysNothingWhereNobodyCouldSeeWhatItIsAbout)
{
    FieldStage stage;
    auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
    Percent(*made);
    CEditNumber& field = stage.Open(std::move(made));
    field.SetText("101");
    field.SetActive(false);
    EXPECT_TRUE(field.CanSurrender(false));
    EXPECT_EQ(field.GetText(), "100");
    field.SetActive(true);
    field.SetText("101");
    EXPECT_FALSE(field.CanSurrender(false));
    EXPECT_EQ(stage.alerts.boxes.size(), 1U);
    EXPECT_EQ(stage.alerts.boxes[0].title, "Out of Range");
    EXPECT_EQ(stage.alerts.boxes[0].icon, AlertIcon::kWarning);
    stage.process.alertTitle = "Sidecar";
    field.SetText("(");
    EXPECT_FALSE(field.CanSurrender(false));
    EXPECT_EQ(stage.alerts.boxes.at(1).title, "Sidecar") << "the process's own";
}

TEST(EditString, TakesNoMoreThanItMayAndSendsWhatChanged)
{
    FieldStage stage;
    stage.Open(std::make_unique<CEditNumber>(Rect{}, CObjID("field")));
    CEditString& field = *stage.other;
    field.SetID(CObjID("text"));
    field.SetMaxChars(4);
    field.BecomeBullseye(true);
    stage.Sent();
    stage.Type(U"\u00E4b\U0001F600de\U0001F601");
    EXPECT_EQ(field.GetText(), "\u00E4b\U0001F600d");
    EXPECT_EQ(stage.Sent(), "text/4 text/4 text/4 text/4");
    stage.Press(kKeyCode_Return);
    stage.Press(kKeyCode_Return);
    EXPECT_EQ(stage.Sent(), "text/2") << "once";
    field.SetTextOptions(kEdit_ReadOnly);
    stage.Type(U"x");
    stage.Press(kKeyCode_Backspace);
    EXPECT_EQ(field.GetText(), "\u00E4b\U0001F600d");
}

} // namespace
