// What is wrong at a place of a text, for people and for programs.
#pragma once

#include "vex/source_text.h"

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace Vex {

struct Diagnostic {
    const char* position; // in the source
    std::string kind;     // a word for programs: "syntax", "unknown-key", ...
    std::string message;
    std::string hint; // a way out, or empty
};

// file:line:column: message, the line itself, and a caret below the place.
void Print(std::ostream& out, const CSourceText& source, const Diagnostic& diagnostic);

nlohmann::json ToJson(const CSourceText& source, const Diagnostic& diagnostic);

} // namespace Vex
