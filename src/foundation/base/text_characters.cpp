#include "foundation/base/text_characters.h"

#include "foundation/base/unicode.h"

#include <algorithm>

namespace Kesto {

std::size_t OffsetOfCharacter(std::string_view text, std::size_t character)
{
    std::string_view rest = text;
    for (; character > 0 && !rest.empty(); --character)
        TakeCharacter(rest);
    return text.size() - rest.size();
}

std::size_t CharacterAtOffset(std::string_view text, std::size_t offset)
{
    std::string_view rest = text;
    std::size_t character = 0;
    while (!rest.empty()) {
        TakeCharacter(rest);
        if (text.size() - rest.size() > offset)
            break;
        ++character;
    }
    return character;
}

CText SliceText(const CText& text, std::size_t from, std::size_t to)
{
    const std::size_t start = OffsetOfCharacter(text.View(), from);
    const std::size_t end = OffsetOfCharacter(text.View(), to);
    return start < end ? CText(text.View().substr(start, end - start)) : CText();
}

CText InsertText(const CText& text, std::size_t character, std::string_view piece)
{
    return ReplaceText(text, character, character, piece);
}

CText ReplaceText(const CText& text, std::size_t from, std::size_t to, std::string_view piece)
{
    const std::string_view all = text.View();
    const std::size_t start = OffsetOfCharacter(all, from);
    const std::size_t end = std::max(start, OffsetOfCharacter(all, to));
    return CText::Join({all.substr(0, start), piece, all.substr(end)});
}

} // namespace Kesto
