// Between the texts of the seam, whose positions count characters with line feeds, and those of
// the system's fields, which count units of UTF-16 with a return before each line feed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Platform {

std::wstring ToFieldText(std::string_view utf8);
std::string FromFieldText(std::wstring_view text);

// A position the other way round; beyond the end it is the end.
std::size_t UnitOfCharacter(std::wstring_view text, std::size_t character);
std::size_t CharacterOfUnit(std::wstring_view text, std::size_t unit);

// True when the unit before a place is the first half of a character.
bool EndsInHalf(std::wstring_view text, std::size_t unit);

// How many units of a text may be put between two others so that together they have at most so many
// characters. The second half of a character joins the first one.
std::size_t RoomBetween(std::wstring_view before, std::wstring_view after, std::wstring_view comes,
                        std::size_t most);

} // namespace Platform
