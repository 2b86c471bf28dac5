// What a file keeps of fontconfig's answers, and under what conditions they hold.
//
// The bytes are fields, each ended by a zero byte: a word that names the form, then two lists, each
// ended by an empty field. A condition is its name and its value; a font is its size, weight, slant
// (0 or 1), face, file and the face's index there.
#pragma once

#include "platform/graphics/fonts.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

struct FontFile {
    std::string path;
    int index = 0; // of the face in the file

    friend auto operator<=>(const FontFile&, const FontFile&) = default;
};

struct FontAnswers {
    std::map<std::string, std::string> conditions;
    std::map<FontSpec, FontFile> files; // none is underlined

    friend bool operator==(const FontAnswers&, const FontAnswers&) = default;
};

// No text in them may have a zero byte, and no name of a condition be empty.
std::string BytesOf(const FontAnswers& answers);

// None of bytes that BytesOf has not made.
std::optional<FontAnswers> ReadFontAnswers(std::string_view bytes);

} // namespace Platform
