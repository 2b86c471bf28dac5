#include "robot/script.h"

#include "robot/key_names.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <utility>

namespace Host {
namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::optional<double> DecimalOf(std::string_view word)
{
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool isAll = error == std::errc() && end == word.data() + word.size();
    return isAll && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<ScriptPoint> PointOf(std::string_view word)
{
    const std::size_t comma = word.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const std::optional<double> x = DecimalOf(word.substr(0, comma));
    const std::optional<double> y = DecimalOf(word.substr(comma + 1));
    return x && y ? std::optional(ScriptPoint{*x, *y}) : std::nullopt;
}

// Behind the closing quote of a text that begins with one; 0 where there is none.
std::size_t EndOfQuoted(std::string_view text)
{
    for (std::size_t at = 1; text.starts_with('"') && at < text.size(); ++at) {
        if (text[at] == '"')
            return at + 1;
        at += text[at] == '\\' ? 1 : 0;
    }
    return 0;
}

// The words of a line, from the left.
class LineReader {
public:
    LineReader(std::string_view line, const std::string& script, int number)
        : fLine(line), fScript(script), fNumber(number)
    {
        SkipBlanks();
    }

    bool IsAtEnd() const { return fAt == fLine.size() || fLine[fAt] == '#'; }

    // The next word, which `what` would be right for.
    std::string_view Word(const std::string& what)
    {
        fWordAt = fAt;
        if (IsAtEnd())
            Refuse("the line ends", what);
        const std::size_t start = fAt;
        while (fAt < fLine.size() && !IsBlank(fLine[fAt]))
            ++fAt;
        const std::string_view word = fLine.substr(start, fAt - start);
        SkipBlanks();
        return word;
    }

    double Number(const std::string& what)
    {
        const std::string_view word = Word(what);
        const std::optional<double> number = DecimalOf(word);
        if (!number)
            RefuseWord(word, what);
        return *number;
    }

    // What is left, without one blank before it: blanks are part of a text.
    std::string Text() { return std::string(fLine.substr(std::exchange(fAt, fLine.size()))); }

    // The same, but a comment ends it, with the blanks before. In a text in quotes none begins.
    std::string TextBeforeComment()
    {
        std::string_view rest = fLine.substr(std::exchange(fAt, fLine.size()));
        for (std::size_t at = EndOfQuoted(rest); at < rest.size(); ++at)
            if (rest[at] == '#' && (at == 0 || IsBlank(rest[at - 1])))
                rest = rest.substr(0, at);
        while (!rest.empty() && IsBlank(rest.back()))
            rest.remove_suffix(1);
        return std::string(rest);
    }

    void RequireEnd()
    {
        if (!IsAtEnd()) {
            const std::string_view word = Word("");
            RefuseWord(word, "the end of the line");
        }
    }

    [[noreturn]] void RefuseWord(std::string_view word, const std::string& right) const
    {
        Refuse('"' + std::string(word) + "\" was found", right);
    }

    // Back to just after a word; one blank separates it from the text that follows.
    void KeepBlanksAfter(std::string_view word)
    {
        fAt = std::min(static_cast<std::size_t>(word.data() - fLine.data()) + word.size() + 1,
                       fLine.size());
    }

private:
    void SkipBlanks()
    {
        while (fAt < fLine.size() && IsBlank(fLine[fAt]))
            ++fAt;
    }

    [[noreturn]] void Refuse(const std::string& found, const std::string& right) const
    {
        throw ScriptError(fScript + ':' + std::to_string(fNumber) + ':' +
                          std::to_string(fWordAt + 1) + ": " + found + ", but " + right +
                          " would be right");
    }

    std::string_view fLine;
    const std::string& fScript;
    int fNumber;
    std::size_t fAt = 0;
    std::size_t fWordAt = 0; // where the word that was read last began
};

void ReadView(LineReader& line, Action& action)
{
    action.view.text = line.Word("a view's id, or a point as X,Y");
    action.view.point = PointOf(action.view.text);
}

// Where other words than modifiers are allowed, `more` takes those; true: it was one.
template <class More>
void ReadModifiers(LineReader& line, Action& action, const std::string& what, More more)
{
    while (!line.IsAtEnd()) {
        const std::string_view word = line.Word(what);
        if (const std::optional<std::uint32_t> modifier = ModifierOfName(word))
            action.modifiers.push_back(*modifier);
        else if (!more(word))
            line.RefuseWord(word, what);
    }
}

bool ReadButton(std::string_view word, Action& action)
{
    constexpr std::pair<std::string_view, MouseButton> kButtons[] = {
        {"left", MouseButton::kLeft},
        {"right", MouseButton::kRight},
        {"middle", MouseButton::kMiddle}};
    for (const auto& [name, button] : kButtons)
        if (name == word) {
            action.button = button;
            return true;
        }
    return false;
}

bool ReadCount(std::string_view word, Action& action)
{
    constexpr double kMost = 100;
    const std::optional<double> count =
        word.starts_with('x') ? DecimalOf(word.substr(1)) : std::nullopt;
    if (!count || *count < 1 || *count > kMost || *count != std::floor(*count))
        return false;
    action.count = static_cast<int>(*count);
    return true;
}

void ReadClick(LineReader& line, Action& action)
{
    ReadView(line, action);
    ReadModifiers(line, action, "left, right, middle, a count as x1 to x100, shift, control or alt",
                  [&action](std::string_view word) {
                      return ReadButton(word, action) || ReadCount(word, action);
                  });
}

void ReadNothing(LineReader&, Action&) {}

double NumberFrom(LineReader& line, double least, double most, const std::string& what)
{
    std::ostringstream limits;
    limits << what << " from " << least << " to " << most;
    const double number = line.Number(limits.str());
    if (number < least || number > most) {
        std::ostringstream found;
        found << number;
        line.RefuseWord(found.str(), limits.str());
    }
    return number;
}

void ReadWheel(LineReader& line, Action& action)
{
    ReadView(line, action);
    constexpr double kMost = 100;
    action.numbers.x = NumberFrom(line, -kMost, kMost, "the notches to the right, a number");
    action.numbers.y = NumberFrom(line, -kMost, kMost, "the notches upward, a number");
}

void ReadText(LineReader& line, Action& action)
{
    action.text = line.Text();
}

void ReadKey(LineReader& line, Action& action)
{
    const std::string_view name = line.Word("a key's name");
    const std::optional<std::uint32_t> key = KeyOfName(name);
    if (!key)
        line.RefuseWord(name, "one of " + KeyNames());
    action.key = *key;
    ReadModifiers(line, action, "shift, control or alt", [](std::string_view) { return false; });
}

void ReadModifier(LineReader& line, Action& action)
{
    const std::string_view name = line.Word("shift, control or alt");
    const std::optional<std::uint32_t> key = ModifierOfName(name);
    if (!key)
        line.RefuseWord(name, "shift, control or alt");
    action.key = *key;
}

void ReadSize(LineReader& line, Action& action)
{
    constexpr double kLargest = 16384;
    action.numbers.x = NumberFrom(line, 0, kLargest, "a width in units");
    action.numbers.y = NumberFrom(line, 0, kLargest, "a height in units");
}

void ReadPlace(LineReader& line, Action& action)
{
    constexpr double kFarthest = 30000;
    action.numbers.x = NumberFrom(line, -kFarthest, kFarthest, "a left side in pixels");
    action.numbers.y = NumberFrom(line, -kFarthest, kFarthest, "a top in pixels");
}

// "800x600+0-20".
std::optional<ScriptRect> MonitorOf(std::string_view word)
{
    ScriptRect rect;
    int width = 0;
    int height = 0;
    char rest = 0;
    const int count = std::sscanf(std::string(word).c_str(), "%5dx%5d%6d%6d%c", &width, &height,
                                  &rect.left, &rect.top, &rest);
    if (count != 4 || width <= 0 || height <= 0)
        return std::nullopt;
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
    return rect;
}

void ReadMonitors(LineReader& line, Action& action)
{
    const std::string what = "a monitor as WIDTHxHEIGHT+LEFT+TOP";
    do {
        const std::string_view word = line.Word(what);
        const std::optional<ScriptRect> monitor = MonitorOf(word);
        if (!monitor)
            line.RefuseWord(word, what);
        action.monitors.push_back(*monitor);
    } while (!line.IsAtEnd());
}

void ReadScale(LineReader& line, Action& action)
{
    action.numbers.x = NumberFrom(line, 0.25, 8, "a scale");
}

void ReadTheme(LineReader& line, Action& action)
{
    action.numbers.x = NumberFrom(line, 0, 3, "a theme");
    if (action.numbers.x != std::floor(action.numbers.x))
        line.RefuseWord(std::to_string(action.numbers.x), "a theme, 0, 1, 2 or 3,");
}

void ReadSeconds(LineReader& line, Action& action)
{
    constexpr double kLongest = 3600;
    action.numbers.x = NumberFrom(line, 0, kLongest, "a time in seconds");
}

void ReadFile(LineReader& line, Action& action)
{
    if (line.IsAtEnd())
        line.Word("a file's name");
    action.text = line.TextBeforeComment();
}

void ReadExpect(LineReader& line, Action& action)
{
    ReadView(line, action);
    action.property = line.Word("a key of the description");
    action.text = line.TextBeforeComment();
}

void ReadExpectWindow(LineReader& line, Action& action)
{
    if (line.IsAtEnd())
        line.Word("open, closed or a title");
    action.text = line.Text();
    while (!action.text.empty() && IsBlank(action.text.back()))
        action.text.pop_back();
}

void ReadShape(LineReader& line, Action& action)
{
    action.text = line.Word("a cursor's shape");
}

struct VerbRow {
    std::string_view name;
    Verb verb;
    void (*read)(LineReader& line, Action& action); // what follows the verb
};

constexpr VerbRow kVerbs[] = {
    {"click", Verb::kClick, ReadClick},
    {"press", Verb::kPress, ReadView},
    {"move", Verb::kMove, ReadView},
    {"release", Verb::kRelease, ReadNothing},
    {"wheel", Verb::kWheel, ReadWheel},
    {"type", Verb::kType, ReadText},
    {"paste", Verb::kPaste, ReadText},
    {"key", Verb::kKey, ReadKey},
    {"hold", Verb::kHold, ReadModifier},
    {"let-go", Verb::kLetGo, ReadModifier},
    {"focus", Verb::kFocus, ReadView},
    {"resize", Verb::kResize, ReadSize},
    {"scale", Verb::kScale, ReadScale},
    {"theme", Verb::kTheme, ReadTheme},
    {"close", Verb::kClose, ReadNothing},
    {"wait", Verb::kWait, ReadSeconds},
    {"shot", Verb::kShot, ReadFile},
    {"describe", Verb::kDescribe, ReadFile},
    {"expect", Verb::kExpect, ReadExpect},
    {"expect-window", Verb::kExpectWindow, ReadExpectWindow},
    {"place", Verb::kPlace, ReadPlace},
    {"monitors", Verb::kMonitors, ReadMonitors},
    {"expect-cursor", Verb::kExpectCursor, ReadShape},
};

std::string VerbNames()
{
    std::string names;
    for (const VerbRow& row : kVerbs)
        names.append(names.empty() ? "one of " : ", ").append(row.name);
    return names;
}

Action ReadAction(LineReader& line, int number)
{
    const std::string_view word = line.Word("an action");
    const VerbRow* const row = std::ranges::find(kVerbs, word, &VerbRow::name);
    if (row == std::end(kVerbs))
        line.RefuseWord(word, VerbNames());
    Action action;
    action.verb = row->verb;
    action.line = number;
    if (row->read == ReadText)
        line.KeepBlanksAfter(word);
    row->read(line, action);
    line.RequireEnd();
    return action;
}

} // namespace

Script ReadScript(std::string_view text, const std::string& name)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    Script script{name, {}};
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        LineReader reader(line, name, number);
        if (!reader.IsAtEnd())
            script.actions.push_back(ReadAction(reader, number));
    }
    return script;
}

std::filesystem::path FileOf(const std::string& name)
{
    return std::u8string(name.begin(), name.end());
}

Script LoadScript(const std::string& file)
{
    std::ostringstream text;
    if (file == "-") {
        text << std::cin.rdbuf();
        return ReadScript(text.str(), "(standard input)");
    }
    std::ifstream in(FileOf(file), std::ios::binary);
    in.peek();
    if (!in.is_open() || in.bad())
        throw ScriptError(file + ": the script can't be read");
    if (!in.eof())
        text << in.rdbuf();
    return ReadScript(text.str(), file);
}

} // namespace Host
