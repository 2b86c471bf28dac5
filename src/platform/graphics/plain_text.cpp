// MakePlainText.

#include "platform/graphics/font_engine.h"
#include "platform/system/unicode.h"

namespace Platform {
namespace {

char32_t PlainCharacter(std::uint32_t value)
{
    const bool isControl = value < 0x20 || (value >= 0x7F && value < 0xA0);
    const bool isLineEnd = value == 0x2028 || value == 0x2029;
    const bool isSurrogate = value >= 0xD800 && value < 0xE000;
    if (isControl || isLineEnd)
        return U' ';
    return isSurrogate || value > 0x10FFFF ? static_cast<char32_t>(kReplacementCharacter) : value;
}

} // namespace

PlainText MakePlainText(std::string_view utf8, std::size_t most)
{
    PlainText text;
    std::string_view rest = utf8;
    const auto position = [&] { return static_cast<std::uint32_t>(utf8.size() - rest.size()); };
    while (!rest.empty() && text.characters.size() < most) {
        text.starts.push_back(position());
        text.characters += PlainCharacter(TakeCharacter(rest));
    }
    text.starts.push_back(position());
    return text;
}

} // namespace Platform
