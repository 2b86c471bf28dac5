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

} // namespace Platform
