// Answers of fontconfig that outlive the program, in a file for each set of surroundings: reading
// the system's configuration takes fontconfig longer than all else that a first dialog waits for.
//
// They hold while everything they depend on is as it was, and for a day at most, for what can't be
// told: a file that some configuration includes once it is there, another version of fontconfig.
// Whatever is wrong with the file, there are no answers then. It is read only if it is the user's
// own; two programs may write it at once, and one of them wins.
#pragma once

#include "platform/graphics/linux/font_answers.h"
#include "platform/graphics/linux/font_conditions.h"

#include <optional>
#include <string>

namespace Platform {

class FontCache {
public:
    // Reads what is kept in a folder, which need not exist.
    explicit FontCache(std::string folder);

    std::optional<FontFile> Find(const FontSpec& spec) const;

    // Keeps an answer for programs to come. Without effect where that can't be done.
    void Keep(const FontSpec& spec, const FontFile& file, const FontSources& sources);

private:
    void Write() const;

    std::string fFolder;
    std::string fPath; // of the file
    FontAnswers fAnswers;
};

} // namespace Platform
