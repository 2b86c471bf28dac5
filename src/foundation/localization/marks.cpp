#include "foundation/localization/marks.h"

#include "foundation/base/unicode.h"
#include "foundation/localization/localize.h"

#include <algorithm>
#include <array>
#include <string>

namespace Kesto {
namespace {

struct Mark {
    char name;
    std::string_view text;
};

constexpr Mark kCaretMarks[] = {
    {'!', "\u00AC"}, {'"', "\""},     {'#', "\u2318"}, {'*', "*"},       {'A', "'"},
    {'B', "\u2022"}, {'C', "\u00A9"}, {'D', "\u00B0"}, {'E', "\u00EA"},  {'F', "/"},
    {'I', "\u2206"}, {'L', "\\"},     {'N', "\r\n"},   {'O', "Control"}, {'P', "Alt"},
    {'Q', "?"},      {'R', "\u00AE"}, {'S', "\u2211"}, {'T', "\u2122"},  {'U', "\""},
    {'V', "|"},      {'[', "\u201C"}, {']', "\u201D"}, {'^', "^"},       {'`', "`"},
    {'b', "\b"},     {'e', "\u00E9"}, {'l', "\\"},     {'n', "\n"},      {'o', "control"},
    {'p', "alt"},    {'r', "\r"},     {'t', "\t"},     {'{', "\u2018"},  {'}', "\u2019"},
};

constexpr Mark kBackslashMarks[] = {
    {'n', "\n"}, {'r', "\r"}, {'t', "\t"}, {'"', "\""}, {'\\', "\\"}};

// The texts of marks by their second character; empty for those that are none.
using MarkTable = std::array<std::string_view, 128>;

template <std::size_t kCount>
constexpr MarkTable ByName(const Mark (&marks)[kCount])
{
    MarkTable table;
    for (const Mark& mark : marks)
        table[static_cast<std::size_t>(mark.name)] = mark.text;
    return table;
}

constexpr MarkTable kCaretTable = ByName(kCaretMarks);
constexpr MarkTable kBackslashTable = ByName(kBackslashMarks);

// The value of a hexadecimal digit, or -1.
int DigitValue(std::uint32_t character)
{
    if (character >= '0' && character <= '9')
        return static_cast<int>(character - '0');
    const std::uint32_t lower = character | 0x20;
    return lower >= 'a' && lower <= 'f' ? static_cast<int>(lower - 'a' + 10) : -1;
}

// Takes up to four characters and reads them as a hexadecimal number, over those that are no
// digits.
std::uint32_t TakeHexadecimal(std::string_view& rest)
{
    std::uint32_t value = 0;
    for (int place = 0; place < 4 && !rest.empty(); ++place)
        if (const int digit = DigitValue(TakeCharacter(rest)); digit >= 0)
            value = value * 16 + static_cast<std::uint32_t>(digit);
    return value;
}

// Bytes of `rest` in front of the next '^' or '\\'.
std::size_t LengthBeforeMark(std::string_view rest)
{
    const auto found = std::ranges::find_if(rest, [](char c) { return c == '^' || c == '\\'; });
    return static_cast<std::size_t>(found - rest.begin());
}

// Takes the mark at the front of `rest`, two characters at least, and writes what it means.
void TakeMark(std::string_view& rest, std::string& out)
{
    const std::string_view mark = rest.substr(0, 2);
    rest.remove_prefix(2);
    if (mark == "^+") {
        AppendCharacter(out, TakeHexadecimal(rest));
        return;
    }
    const auto name = static_cast<unsigned char>(mark[1]);
    const MarkTable& table = mark[0] == '^' ? kCaretTable : kBackslashTable;
    const std::string_view text = name < table.size() ? table[name] : std::string_view();
    out += text.empty() ? mark : text;
}

} // namespace

// A mark needs a second character: a caret or backslash at the very end stays.
void ExpandMarks(CText& text)
{
    std::string_view rest = text.View();
    std::size_t next = LengthBeforeMark(rest);
    if (next == rest.size())
        return;
    std::string out;
    out.reserve(rest.size());
    for (; next + 1 < rest.size(); next = LengthBeforeMark(rest)) {
        out += rest.substr(0, next);
        rest.remove_prefix(next);
        TakeMark(rest, out);
    }
    out += rest;
    text = out;
}

void ReplaceArgument(CText& text, unsigned index, const CText& value)
{
    const std::string pattern = '^' + std::to_string(index);
    CText argument = value;
    Localize(argument);
    const std::string_view whole = text.View();
    const std::size_t found = whole.find(pattern);
    if (found != std::string_view::npos)
        text = CText::Join(
            {whole.substr(0, found), argument.View(), whole.substr(found + pattern.size())});
}

} // namespace Kesto
