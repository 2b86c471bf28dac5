// What fontconfig's answers depend on: its configuration and its folders of fonts, the variables of
// the environment that it reads, and the program.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

// What fontconfig has read: files and folders, those too that it found missing.
struct FontSources {
    std::vector<std::string> paths; // its main file first
    std::int64_t since = 0;         // WallClock before it read the first of them
};

// Nanoseconds since 1970.
std::int64_t WallClock();

// A condition's value at this moment. The name is the path of a file or folder, which begins with a
// slash, a variable's, or kProgram.
std::string ValueOfCondition(const std::string& name);
inline constexpr const char* kProgram = "program";

// Those that are no paths, together as one text.
std::string SurroundingsOfFonts();

// Everything that answers from these sources depend on, by name. None if that can't be told, as
// when a source has changed while fontconfig read it.
std::optional<std::map<std::string, std::string>> ConditionsOf(const FontSources& sources);

} // namespace Platform
