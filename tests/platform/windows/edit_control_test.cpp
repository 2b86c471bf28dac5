// What a person's fingers do in a field, and what programs do to it.
#include "platform/windows/window_log.h"

#include "platform/input/injection.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/edit_control.h"
#include "support/testing.h"

namespace {

using namespace Platform;

const std::map<std::string, std::uint32_t>& KeyNumbers()
{
    static const std::map<std::string, std::uint32_t> keys = {
        {"Back", 0x08},     {"Tab", 0x09},  {"Return", 0x0D}, {"Escape", 0x1B}, {"PageUp", 0x21},
        {"PageDown", 0x22}, {"End", 0x23},  {"Home", 0x24},   {"Left", 0x25},   {"Up", 0x26},
        {"Right", 0x27},    {"Down", 0x28}, {"Insert", 0x2D}, {"Delete", 0x2E}};
    return keys;
}

class Field final : public EditHandler {
public:
    explicit Field(const EditStyle& style = {})
    {
        ShowSystemWindow(window.handle, ShowCommand::kShow);
        edit = MakeEditControl(window.handle, style, {}, *this);
        edit->Place({10, 10, 250, style.multiLine ? 110 : 30});
        edit->SetShown(true);
        FocusWindow(edit->Handle());
        WindowTest::Pump();
    }

    // Words are keys, with modifiers before them: ^ Control, + Shift. What stands in quotation
    // marks is typed, _ as a blank.
    void Play(const std::string& keys)
    {
        std::istringstream words(keys);
        for (std::string word; words >> word;)
            word.front() == '"' ? Type(word.substr(1, word.size() - 2)) : Press(word);
    }

    // The text with [ and ] around the selection, or | at the caret, and / for a line feed.
    std::string Look() const
    {
        std::string text = edit->Text();
        const TextRange range = edit->Selection();
        const auto byteOf = [&](std::size_t character) {
            std::size_t at = 0;
            for (; at < text.size(); ++at)
                if ((text[at] & 0xC0) != 0x80 && character-- == 0)
                    break;
            return at;
        };
        const std::size_t from = byteOf(range.from);
        const std::size_t to = byteOf(range.to);
        if (from != to)
            text.insert(to, "]");
        text.insert(from, from != to ? "[" : "|");
        std::replace(text.begin(), text.end(), '\n', '/');
        return text;
    }

    bool Intercept(const WindowMessage& message) override
    {
        return message.number == Number::kKeyDown && message.first == eaten;
    }
    void ChildFocused(bool focused) override { focus = focused; }
    void TextChanged() override { ++changes; }

    WindowTest::Log log;
    WindowTest::Window window{"w", log};
    std::unique_ptr<EditControl> edit;
    std::uintptr_t eaten = 0;
    bool focus = false;
    int changes = 0;

private:
    void Press(std::string word)
    {
        constexpr std::uint32_t kShift = 0x10;
        constexpr std::uint32_t kControl = 0x11;
        std::vector<std::uint32_t> held;
        for (; word.size() > 1 && (word[0] == '^' || word[0] == '+'); word.erase(0, 1))
            held.push_back(word[0] == '^' ? kControl : kShift);
        for (const std::uint32_t key : held)
            InjectKey(key, true);
        const std::uint32_t key =
            word.size() == 1 ? static_cast<std::uint32_t>(word[0]) : KeyNumbers().at(word);
        InjectKey(key, true);
        InjectKey(key, false);
        for (const std::uint32_t each : held)
            InjectKey(each, false);
        WindowTest::Pump();
    }

    void Type(const std::string& text)
    {
        for (const char c : text)
            InjectCharacter(static_cast<char32_t>(c == '_' ? ' ' : c));
        WindowTest::Pump();
    }
};

struct KeyCase {
    const char* what;
    const char* text; // with / for a line feed
    TextRange selection;
    const char* keys;
    const char* look;
};

void PlayCases(std::span<const KeyCase> cases, const EditStyle& style)
{
    for (const KeyCase& each : cases) {
        SCOPED_TRACE(each.what);
        Field field(style);
        std::string text = each.text;
        if (style.multiLine)
            std::ranges::replace(text, '/', '\n');
        field.edit->SetText(text);
        field.edit->Select(each.selection);
        field.Play(each.keys);
        EXPECT_EQ(field.Look(), each.look);
    }
}

TEST(EditControl, KeysInOneLine)
{
    const KeyCase cases[] = {
        {"typing goes to the caret", "ad", {1, 1}, "\"bc\"", "abc|d"},
        {"typing replaces the selection", "abcd", {1, 3}, "\"x\"", "ax|d"},
        {"arrows", "abcd", {2, 2}, "Left Left Left Right", "a|bcd"},
        {"arrows with Shift", "abcd", {2, 2}, "+Left", "a[b]cd"},
        {"Home and End", "abcd", {2, 2}, "+End", "ab[cd]"},
        {"Home with Shift", "abcd", {2, 2}, "End +Home", "[abcd]"},
        {"words to the right", "one two three", {0, 0}, "^Right ^Right", "one two |three"},
        {"words to the left", "one two three", {13, 13}, "^Left +^Left", "one [two ]three"},
        {"Backspace", "abc", {2, 2}, "Back", "a|c"},
        {"Delete", "abc", {1, 1}, "Delete", "a|c"},
        {"Delete takes the selection", "abcd", {1, 3}, "Delete", "a|d"},
        {"Backspace takes the selection", "abcd", {1, 3}, "Back", "a|d"},
        {"Backspace at the start", "abc", {0, 0}, "Back", "|abc"},
        {"Delete at the end", "abc", {3, 3}, "Delete", "abc|"},
        {"copy and paste", "abcd", {1, 3}, "^C End ^V", "abcdbc|"},
        {"cut and paste", "abcd", {1, 3}, "^X Home ^V", "bc|ad"},
        {"the other keys for it", "abcd", {1, 3}, "^Insert +Delete +Insert", "abc|d"},
        {"undo", "abc", {1, 2}, "\"x\" ^Z", "a[b]c"},
        {"all", "abcd", {2, 2}, "^A", "[abcd]"},
        {"Return types nothing", "abc", {1, 1}, "Return", "a|bc"},
        {"letters of two bytes",
         "\xC3\xA4\xC3\xB6\xC3\xBC",
         {3, 3},
         "Back Left",
         "\xC3\xA4|\xC3\xB6"},
    };
    PlayCases(cases, {});
}

TEST(EditControl, KeysInSeveralLines)
{
    const KeyCase cases[] = {
        {"Return parts a line", "abcd", {2, 2}, "Return", "ab/|cd"},
        {"up and down keep the column",
         "abcd/abcd/abcd",
         {2, 2},
         "Down Down Up",
         "abcd/ab|cd/abcd"},
        {"down to a shorter line", "abcd/e/abcd", {3, 3}, "Down", "abcd/e|/abcd"},
        {"up out of the first line", "abcd", {2, 2}, "Up", "ab|cd"},
        {"the line's ends", "ab/cd/ef", {4, 4}, "+End", "ab/c[d]/ef"},
        {"the text's ends", "ab/cd/ef", {4, 4}, "^End", "ab/cd/ef|"},
        {"the text's start", "ab/cd/ef", {4, 4}, "^Home", "|ab/cd/ef"},
        {"over a line's end", "ab/cd", {2, 2}, "Right Right", "ab/c|d"},
        {"all", "ab/cd", {2, 2}, "^A", "[ab/cd]"},
        {"a line end goes", "ab/cd", {3, 3}, "Back", "ab|cd"},
    };
    EditStyle style;
    style.multiLine = true;
    PlayCases(cases, style);
}

TEST(EditControl, TellsOfWhatTheUserChanges)
{
    Field field;
    EXPECT_TRUE(field.focus);
    field.edit->SetText("abc");
    EXPECT_EQ(field.changes, 0) << "the program knows what it does";
    field.Play("\"x\" Back Left");
    EXPECT_EQ(field.changes, 2);
    field.eaten = 0x25;
    field.edit->Select({2, 2});
    field.Play("Left");
    EXPECT_EQ(field.Look(), "ab|c") << "the handler has eaten the key";
    FocusWindow(field.window.handle);
    EXPECT_FALSE(field.focus);
}

TEST(EditControl, LimitsAndReadOnly)
{
    Field field;
    field.edit->SetLimit(5);
    field.edit->SetText("abcdefg");
    EXPECT_EQ(field.edit->Text(), "abcdefg") << "the program's own texts may be longer";
    field.edit->SetText("abc");
    field.Play("End \"xyz\"");
    EXPECT_EQ(field.Look(), "abcxy|");
    field.edit->SetReadOnly(true);
    field.Play("Back \"z\" +Home");
    EXPECT_EQ(field.Look(), "[abcxy]");
}

TEST(EditControl, LimitsCountCharactersOfWhateverLength)
{
    const std::string two = "\U0001F600\U0001F601";
    Field field;
    field.edit->SetLimit(3);
    const auto type = [&] {
        for (const char32_t character : U"\U0001F600\U0001F601x\U0001F602")
            if (character != 0)
                InjectCharacter(character);
        WindowTest::Pump();
    };
    type();
    EXPECT_EQ(field.Look(), two + "x|");
    field.edit->Select({0, 2});
    type();
    EXPECT_EQ(field.Look(), two + "|x") << "a selection makes room";
    SetClipboardText("\U0001F603" + two + two);
    field.edit->Select({1, 3});
    field.Play("^V");
    EXPECT_EQ(field.edit->Text(), "\U0001F600\U0001F603\U0001F600");
    field.edit->Select({0, 3});
    field.edit->ReplaceSelection("a" + two + two);
    EXPECT_EQ(field.edit->Text(), "a" + two);
}

TEST(EditControl, IsPaintedWhenItsWindowComesIntoSight)
{
    Field field;
    Bitmap picture;
    for (const bool again : {false, true}) {
        SCOPED_TRACE(again ? "the second time" : "the first time");
        WindowTest::Log log;
        EditLook look;
        look.ground = {10, 20, 30, 255};
        WindowTest::Window window("w", log);
        const auto edit = MakeEditControl(window.handle, {}, look, field);
        edit->Place({10, 10, 60, 30});
        edit->SetShown(true);
        if (again) {
            ShowSystemWindow(window.handle, ShowCommand::kShow);
            ShowSystemWindow(window.handle, ShowCommand::kHide);
        }
        ASSERT_TRUE(window.shown.Make(300, 200, 32, false));
        ShowSystemWindow(window.handle, ShowCommand::kShow);
        WindowTest::Pump();
        ASSERT_TRUE(PhotographWindow(window.handle, picture));
        EXPECT_EQ(picture.Bits()[20 * picture.RowBytes() + 50 * 4], 30) << "blue";
    }
}

TEST(EditControl, AFieldOutlivesItsWindow)
{
    Field field;
    field.edit->SetText("kept");
    EndSystemWindow(field.window.handle);
    EXPECT_EQ(field.edit->Handle(), nullptr);
    EXPECT_EQ(field.edit->Text(), "kept");
    field.edit->Place({0, 0, 5, 5});
    field.edit->SetShown(false);
}

} // namespace
