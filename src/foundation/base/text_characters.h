// A text by its characters: what fields do with carets and selections.
//
// Characters are numbered from 0; a number beyond the end is the end. Bytes that are no UTF-8 count
// as CountCharacters counts them. Nothing here ends or begins within a character.
#pragma once

#include "foundation/base/text.h"

#include <cstddef>
#include <string_view>

namespace Kesto {

// The bytes in front of a character.
std::size_t OffsetOfCharacter(std::string_view text, std::size_t character);

// The character that a byte belongs to.
std::size_t CharacterAtOffset(std::string_view text, std::size_t offset);

// The characters from `from` up to `to`; empty unless from is less than to.
CText SliceText(const CText& text, std::size_t from, std::size_t to);

// With `piece` in front of a character; with `piece` in place of a slice.
CText InsertText(const CText& text, std::size_t character, std::string_view piece);
CText ReplaceText(const CText& text, std::size_t from, std::size_t to, std::string_view piece);

} // namespace Kesto
