// The number field in a window, under a user's hands.
#include "controls/field_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

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

} // namespace
