#include "foundation/base/text.h"

#include "foundation/base/unicode.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace Kesto {

CTextBuffer::CTextBuffer(std::uint32_t byteLength)
    : fBytes(reinterpret_cast<char*>(this) + sizeof(CTextBuffer)), fByteLength(byteLength)
{
    fBytes[byteLength] = '\0';
}

CTextBuffer* CTextBuffer::Make(std::size_t byteLength)
{
    if (byteLength > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("a text of 4 GiB or more");
    return new (Room{byteLength + 1}) CTextBuffer(static_cast<std::uint32_t>(byteLength));
}

CTextBuffer* CText::MakeBuffer(std::initializer_list<std::string_view> parts)
{
    std::size_t length = 0;
    for (const std::string_view part : parts)
        length += part.size();
    if (length == 0)
        return nullptr;
    CTextBuffer* const buffer = CTextBuffer::Make(length);
    char* end = buffer->Bytes();
    for (const std::string_view part : parts)
        end = std::ranges::copy(part, end).out;
    buffer->SetCharCount(CountCharacters({buffer->Bytes(), length}));
    return buffer;
}

CText::CText(const char* utf8)
    : fBuffer(utf8 == nullptr ? nullptr : MakeBuffer({std::string_view(utf8)}))
{
}

CText CText::Join(std::initializer_list<std::string_view> parts)
{
    CText text;
    text.fBuffer = MakeBuffer(parts);
    return text;
}

// Most texts are ASCII, where each unit is a byte; others are measured first, so that there is one
// allocation either way.
CText CText::FromUtf16(std::u16string_view utf16)
{
    const bool isAscii = std::ranges::all_of(utf16, [](char16_t unit) { return unit < 0x80; });
    std::size_t length = isAscii ? utf16.size() : 0;
    for (std::u16string_view rest = isAscii ? std::u16string_view() : utf16; !rest.empty();)
        length += EncodedLength(TakeCharacter(rest));
    CText text;
    if (length == 0)
        return text;
    text.fBuffer = CTextBuffer::Make(length);
    char* end = text.fBuffer->Bytes();
    if (isAscii)
        std::ranges::transform(utf16, end, [](char16_t unit) { return static_cast<char>(unit); });
    else
        while (!utf16.empty())
            end = EncodeCharacter(TakeCharacter(utf16), end);
    text.fBuffer->SetCharCount(isAscii ? length : CountCharacters(text.View()));
    return text;
}

std::u16string CText::Utf16() const
{
    return ToUtf16(View());
}

CText& CText::Append(std::string_view utf8)
{
    if (!utf8.empty())
        *this = Join({View(), utf8});
    return *this;
}

} // namespace Kesto
