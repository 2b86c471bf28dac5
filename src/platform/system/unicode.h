// Single characters in UTF-8 and UTF-16.
//
// UTF-8 here is the wide form of one to six bytes, which reaches past U+10FFFF; values that the
// platform does not know as characters travel through a text unharmed. Lone surrogates keep their
// value in both directions for the same reason.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Platform {

inline constexpr std::uint32_t kReplacementCharacter = 0xFFFD;

// The largest value that has an encoding; a larger one becomes the replacement character.
inline constexpr std::uint32_t kMaximumCharacter = 0x7FFFFFFE;

// Bytes that EncodeCharacter makes of `value`: 1 to 6.
std::size_t EncodedLength(std::uint32_t value);

// Writes the encoding of `value` at `out`, which has room for EncodedLength(value) bytes; returns
// the end of it.
char* EncodeCharacter(std::uint32_t value, char* out);
void AppendCharacter(std::string& text, std::uint32_t value);

// Takes the character at the front of `utf8`, which must not be empty. A byte that begins no
// well-formed character is taken alone and read as the replacement character.
std::uint32_t TakeCharacter(std::string_view& utf8);

// Takes the character at the front of `utf16`, which must not be empty: a pair of surrogates, or
// one unit.
std::uint32_t TakeCharacter(std::u16string_view& utf16);

// The text in UTF-16; what UTF-16 cannot hold becomes the replacement character.
std::u16string ToUtf16(std::string_view utf8);

// Whether the byte goes on with a character of UTF-8 that another began.
constexpr bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Characters of `utf8`, counted by the bytes that begin one.
std::size_t CountCharacters(std::string_view utf8);

} // namespace Platform
