#include "platform/windows/win32/edit_text.h"

#include "platform/system/win32/wide.h"

#include <algorithm>

namespace Platform {
namespace {

// Units of the character that begins here.
std::size_t UnitsAt(std::wstring_view text, std::size_t unit)
{
    const bool hasNext = unit + 1 < text.size();
    const bool isPair = hasNext && (text[unit] & 0xFC00) == 0xD800;
    const bool isLineEnd = hasNext && text[unit] == L'\r' && text[unit + 1] == L'\n';
    return isPair || isLineEnd ? 2 : 1;
}

} // namespace

std::wstring ToFieldText(std::string_view utf8)
{
    std::wstring text;
    for (const wchar_t c : ToWide(utf8)) {
        if (c == L'\n' && (text.empty() || text.back() != L'\r'))
            text += L'\r';
        text += c;
    }
    return text;
}

std::string FromFieldText(std::wstring_view text)
{
    std::string utf8 = FromWide(text);
    std::erase(utf8, '\r');
    return utf8;
}

std::size_t UnitOfCharacter(std::wstring_view text, std::size_t character)
{
    std::size_t unit = 0;
    while (character-- > 0 && unit < text.size())
        unit += UnitsAt(text, unit);
    return std::min(unit, text.size());
}

std::size_t CharacterOfUnit(std::wstring_view text, std::size_t unit)
{
    std::size_t character = 0;
    for (std::size_t at = 0; at < std::min(unit, text.size()); at += UnitsAt(text, at))
        ++character;
    return character;
}

bool EndsInHalf(std::wstring_view text, std::size_t unit)
{
    return unit > 0 && unit <= text.size() && (text[unit - 1] & 0xFC00) == 0xD800;
}

std::size_t RoomBetween(std::wstring_view before, std::wstring_view after, std::wstring_view comes,
                        std::size_t most)
{
    const bool joins =
        EndsInHalf(before, before.size()) && !comes.empty() && (comes.front() & 0xFC00) == 0xDC00;
    std::size_t room = joins ? 1 : 0;
    std::size_t characters =
        CharacterOfUnit(before, before.size()) + CharacterOfUnit(after, after.size());
    for (; characters < most && room < comes.size(); ++characters)
        room += UnitsAt(comes, room);
    return room;
}

} // namespace Platform
