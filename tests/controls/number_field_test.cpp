// The number field in a window, under a user's hands.
#include "controls/field_window.h"
#include "support/testing.h"

namespace {

using namespace Kesto;
using Testing::FieldStage;

constexpr std::uint32_t kShift = 0x10;

// What a row makes of its field.
using Set = void (*)(CEditNumber&);

void Percent(CEditNumber& field)
{
    field.SetDecimal(true);
    field.SetValueAndRange(5, 0, 100);
}
template <auto Option>
void PercentWith(CEditNumber& field)
{
    Percent(field);
    field.SetTextOptions(Option);
}
void PlainPercent(CEditNumber& field)
{
    Percent(field);
    field.SetNoExpressions(true);
}
void AnonymousPercent(CEditNumber& field)
{
    Percent(field);
    field.SetID({});
}
void BelowZero(CEditNumber& field)
{
    field.SetRange(-1, 9);
}
void RoundedLimit(CEditNumber& field)
{
    field.SetValueAndRange(-12.5, -12.5, 100);
}

CEditNumber& Open(FieldStage& stage, Set set = Percent)
{
    auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
    set(*made);
    return stage.Open(std::move(made));
}

// What is typed, with a sign for each key that is none of a text.
void Type(FieldStage& stage, std::u32string_view text)
{
    constexpr std::pair<char32_t, std::uint32_t> kSigns[] = {
        {U'>', kKeyCode_Tab},    {U'!', kKeyCode_Return}, {U'<', kKeyCode_Backspace},
        {U'~', kKeyCode_Delete}, {U'[', kKeyCode_Home},   {U']', kKeyCode_End},
        {U'{', kKeyCode_Left},   {U'^', kKeyCode_Up},     {U'v', kKeyCode_Down}};
    for (const char32_t c : text) {
        const auto* const sign =
            std::ranges::find_if(kSigns, [c](auto& s) { return s.first == c; });
        sign != std::end(kSigns) ? stage.Press(sign->second) : stage.Type({&c, 1});
    }
}

constexpr const char* kRange = "A value between 0 and 100 is\rrequired. Closest value inserted.";
constexpr const char* kInvalid = "Invalid numeric entry. A value between 0 and 100 is required.  "
                                 "Previous value inserted.";

const struct {
    const char* name;
    Set set;
    std::u32string_view keys;
    double value;
    std::string_view text, sent;
    const char* alert = nullptr; // which keeps the focus here, as does everything but Tab
} kRows[] = {
    {"a number is live, and committed by Return", Percent, U"42!", 42, "42", "4:4 4:42 2:42"},
    {"and by Tab", Percent, U"7>", 7, "7", "4:7 5:7"},
    {"an expression", Percent, U"2*(3+4)>", 14, "14", "4:2 4:14 5:14"},
    {"beyond the range: the closest", Percent, U"101>", 100, "100", "4:1 4:10 4:100", kRange},
    {"Return beyond the range", Percent, U"101!", 100, "100", "4:1 4:10 4:100 2:100", kRange},
    {"no number: the one before", Percent, U"2*(3+>", 5, "5", "4:2", kInvalid},
    {"no number, silently", PercentWith<kEdit_NoInvalidValueAlert>, U"(>", 5, "5", "5:5"},
    {"too large, silently", PercentWith<kEdit_NoRangeAlert>, U"999>", 100, "100",
     "4:9 4:99 4:100 5:100"},
    {"nothing is no number", Percent, U"<>", 5, "5", "", kInvalid},
    {"a sign needs a negative minimum", Percent, U"-3>", 3, "3", "4:3 5:3"},
    {"no expressions: no operators", PlainPercent, U"2*3>", 23, "23", "4:2 4:23 5:23"},
    {"a step at the limit is none", BelowZero, U"vv", -1, "-1", "3:-1"},
    {"a field without an id says nothing, and follows", AnonymousPercent, U"42>", 42, "42", ""},
    {"a rounded limit holds nobody", RoundedLimit, U">", -12.5, "-13", "5:-12.5"},
    {"Home, Delete and End", Percent, U"4]5[~6!", 65, "65", "4:4 4:45 4:5 4:65 2:65"},
    {"Left and Backspace", Percent, U"12{<7>", 72, "72", "4:1 4:12 4:2 4:72 5:72"},
    {"what is typed replaces what a step selects", Percent, U"^8>", 8, "8", "3:6 4:8 5:8"},
    {"leaving it as it was is a commit", Percent, U">", 5, "5", "5:5"},
    {"back to what it was is news too", Percent, U"51<>", 5, "5", "4:51 4:5 5:5"},
};

TEST(NumberField, DoesWhatKeysSay)
{
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        FieldStage stage;
        CEditNumber& field = Open(stage, row.set);
        Type(stage, row.keys);
        EXPECT_EQ(field.GetValue(), row.value);
        EXPECT_EQ(field.GetText(), row.text);
        EXPECT_EQ(stage.Sent(), row.sent);
        EXPECT_EQ(stage.alerts.texts,
                  std::vector<std::string>(row.alert != nullptr, row.alert ? row.alert : ""));
        EXPECT_EQ(field.IsBullseye(), row.alert != nullptr || !row.keys.ends_with(U'>'));
    }
}

TEST(NumberField, StepsFurtherWithShift)
{
    FieldStage stage;
    Open(stage);
    stage.Hold(kShift, true);
    stage.Press(kKeyCode_Up);
    stage.Hold(kShift, false);
    EXPECT_EQ(stage.Sent(), "3:15");
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
        const char *sent, *text;
    } rows[] = {
        {"a click",
         [](FieldStage& stage) { stage.MoveTo(50, 22), stage.Button(true), stage.Button(false); },
         "2:5", "5"},
        {"typing", [](FieldStage& stage) { stage.Focus(), stage.Type(U"6"); }, "4:6", "6"},
        {"a step", [](FieldStage& stage) { stage.Focus(), stage.Press(kKeyCode_Up); }, "3:6", "6"},
        {"passing by doesn't", [](FieldStage& stage) { stage.Focus(), stage.Press(kKeyCode_Tab); },
         "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FieldStage stage;
        CEditNumber& field = Open(stage);
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
    CEditNumber& field = Open(stage);
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
