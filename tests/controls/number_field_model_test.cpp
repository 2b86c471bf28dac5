// The number field against a model of it, over random keys.
#include "controls/field_window.h"
#include "support/testing.h"

namespace {

using namespace Kesto;

// What the field should be: a line of text with a caret, and the value behind it. The rules of
// numbers are the field's, and have tests of their own.
struct Model {
    CNumberRules rules;
    double value = 0.0;
    double live = 0.0;
    std::string text;
    std::size_t anchor = 0;
    std::size_t caret = 0;
    std::string sent;
    std::size_t alerts = 0;

    std::size_t From() const { return std::min(anchor, caret); }
    std::size_t To() const { return std::max(anchor, caret); }
    bool HasSelection() const { return anchor != caret; }
    std::optional<double> Read() const { return rules.TextToValue(text); }
    void MoveTo(std::size_t place) { anchor = caret = std::min(place, text.size()); }
    void SelectAll()
    {
        anchor = 0;
        caret = text.size();
    }

    void Send(int phase, double number)
    {
        sent += std::to_string(phase) + ":" + Testing::Shortest(number) + " ";
    }

    void Put(double number)
    {
        value = rules.Clamp(number);
        const std::string shown = rules.ValueToText(value);
        if (std::exchange(text, shown) != shown)
            MoveTo(0);
        live = rules.Clamp(Read().value_or(value));
    }

    void Replace(std::size_t from, std::size_t to, const std::string& with)
    {
        text.replace(from, to - from, with);
        MoveTo(from + with.size());
        const std::optional<double> reading = Read();
        if (reading && std::exchange(live, rules.Clamp(*reading)) != rules.Clamp(*reading))
            Send(4, live);
    }

    void Type(char character)
    {
        if (rules.LetsIn(static_cast<unsigned char>(character), From() == 0))
            Replace(From(), To(), {character});
    }
    void Backspace()
    {
        if (HasSelection() || caret > 0)
            Replace(HasSelection() ? From() : caret - 1, To(), {});
    }
    void Delete()
    {
        if (HasSelection() || caret < text.size())
            Replace(From(), HasSelection() ? To() : caret + 1, {});
    }

    void Step(double delta)
    {
        const double next = rules.Step(value, delta);
        if (next == value)
            return;
        Put(next);
        SelectAll();
        Send(3, value);
    }

    // True when the text was good.
    bool Correct()
    {
        const std::optional<double> reading = Read();
        const bool good = reading && rules.IsInRange(*reading);
        Put(reading.value_or(value));
        alerts += !good;
        return good;
    }
    void Return()
    {
        const bool good = Correct();
        Send(2, value);
        if (!good)
            SelectAll();
    }
    void LeaveAndComeBack()
    {
        if (Correct())
            Send(5, value);
        SelectAll();
    }
};

enum class Act {
    kType,
    kBackspace,
    kDelete,
    kLeft,
    kRight,
    kHome,
    kEnd,
    kUp,
    kDown,
    kReturn,
    kTab
};

// One of the texts that people type, wrong ones among them.
char CharacterFor(std::mt19937& random)
{
    constexpr std::string_view kCharacters = "00112233456789..+-*/()x";
    return kCharacters[random() % kCharacters.size()];
}

Act ActFor(std::mt19937& random, const Model& model)
{
    constexpr Act kActs[] = {
        Act::kType, Act::kType,      Act::kType, Act::kType,      Act::kType,   Act::kType,
        Act::kType, Act::kBackspace, Act::kLeft, Act::kBackspace, Act::kDelete, Act::kRight,
        Act::kHome, Act::kEnd,       Act::kUp,   Act::kDown,      Act::kTab,    Act::kReturn};
    const Act act = kActs[random() % std::size(kActs)];
    // Where these lead from a selection is the system's to say.
    const bool isMove = act == Act::kLeft || act == Act::kRight;
    return isMove && model.HasSelection() ? Act::kEnd : act;
}

void Apply(Act act, char character, Model& model, Testing::FieldStage& stage)
{
    constexpr std::uint32_t kShiftKey = 0x10;
    switch (act) {
    case Act::kType:
        model.Type(character);
        return stage.Type(std::u32string(1, static_cast<unsigned char>(character)));
    case Act::kBackspace:
        model.Backspace();
        return stage.Press(kKeyCode_Backspace);
    case Act::kDelete:
        model.Delete();
        return stage.Press(kKeyCode_Delete);
    case Act::kLeft:
        model.MoveTo(model.caret - (model.caret > 0));
        return stage.Press(kKeyCode_Left);
    case Act::kRight:
        model.MoveTo(model.caret + 1);
        return stage.Press(kKeyCode_Right);
    case Act::kHome:
        model.MoveTo(0);
        return stage.Press(kKeyCode_Home);
    case Act::kEnd:
        model.MoveTo(model.text.size());
        return stage.Press(kKeyCode_End);
    case Act::kUp:
        model.Step(1);
        return stage.Press(kKeyCode_Up);
    case Act::kDown:
        model.Step(-1);
        return stage.Press(kKeyCode_Down);
    case Act::kReturn:
        model.Return();
        return stage.Press(kKeyCode_Return);
    case Act::kTab:
        model.LeaveAndComeBack();
        stage.Press(kKeyCode_Tab);
        stage.Hold(kShiftKey, true);
        if (!stage.field->IsBullseye())
            stage.Press(kKeyCode_Tab);
        return stage.Hold(kShiftKey, false);
    }
}

TEST(NumberField, AgreesWithItsModelOverRandomKeys)
{
    const struct {
        const char* name;
        std::uint32_t format;
        double minimum, maximum;
    } rows[] = {
        {"whole numbers", kNumber_Integer, 1, 250},
        {"decimals with signs", kNumber_Decimal | kNumber_ShowPlus, -9.5, 100},
        {"fixed, round and round", kNumber_Decimal | kNumber_FixedDecimal | kNumber_WrapAround, 0,
         3},
        {"padded", kNumber_PadInteger, -20, 20},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Testing::FieldStage stage;
        auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
        made->SetNumberFormat(row.format);
        made->SetValueAndRange(2, row.minimum, row.maximum);
        CEditNumber& field = stage.Open(std::move(made));
        Model model;
        model.rules.format = row.format;
        model.rules.minimum = row.minimum;
        model.rules.maximum = row.maximum;
        model.Put(2);
        model.SelectAll();
        std::mt19937 random(7);
        for (int step = 0; step < 400 && !testing::Test::HasFailure(); ++step) {
            const Act act = ActFor(random, model);
            const char character = CharacterFor(random);
            const std::string before = model.text;
            Apply(act, character, model, stage);
            SCOPED_TRACE("step " + std::to_string(step) + ", act " +
                         std::to_string(static_cast<int>(act)) + " " + character + " in " + before);
            EXPECT_EQ(field.GetText(), model.text);
            EXPECT_EQ(field.GetValue(), model.value);
            EXPECT_EQ(std::exchange(stage.window.sent, {}), std::exchange(model.sent, {}));
            EXPECT_EQ(stage.alerts.boxes.size(), model.alerts);
            EXPECT_TRUE(field.IsBullseye());
        }
    }
}

} // namespace
