#include "vex/diagnostic.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace Vex {

namespace {

constexpr std::size_t kShownBytes = 120;
constexpr std::size_t kShownBefore = 60; // of a long line, in front of the place

bool ContinuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The part of a line that is shown. A cut is marked by three points and leaves characters whole.
struct Excerpt {
    std::string text;
    std::size_t caret; // where in the text the place is
};

Excerpt ExcerptOf(std::string_view line, std::size_t place)
{
    place = std::min(place, line.size());
    if (line.size() <= kShownBytes)
        return {std::string(line), place};
    std::size_t start = place > kShownBefore ? place - kShownBefore : 0;
    while (start > 0 && start < line.size() && ContinuesCharacter(line[start]))
        --start;
    std::size_t end = std::min(start + kShownBytes, line.size());
    while (end < line.size() && ContinuesCharacter(line[end]))
        ++end;
    const std::string lead = start > 0 ? "..." : "";
    return {lead + std::string(line.substr(start, end - start)) + (end < line.size() ? "..." : ""),
            place - start + lead.size()};
}

} // namespace

// The caret is below its character, whatever the width of a tab is and however many bytes a
// character has.
void Print(std::ostream& out, const CSourceText& source, const Diagnostic& diagnostic)
{
    const SourcePlace place = source.PlaceOf(diagnostic.position);
    const Excerpt excerpt = ExcerptOf(source.LineOf(diagnostic.position), place.column - 1);
    std::string indent;
    for (char c : excerpt.text.substr(0, excerpt.caret))
        if (c == '\t' || !ContinuesCharacter(c))
            indent += c == '\t' ? '\t' : ' ';
    out << source.Name() << ':' << place.line << ':' << place.column << ": " << diagnostic.message
        << '\n';
    out << "    " << excerpt.text << "\n    " << indent << "^\n";
    if (!diagnostic.hint.empty())
        out << "    " << diagnostic.hint << '\n';
}

nlohmann::json ToJson(const CSourceText& source, const Diagnostic& diagnostic)
{
    const SourcePlace place = source.PlaceOf(diagnostic.position);
    nlohmann::json json{{"file", source.Name()},
                        {"line", place.line},
                        {"column", place.column},
                        {"kind", diagnostic.kind},
                        {"message", diagnostic.message}};
    if (!diagnostic.hint.empty())
        json["hint"] = diagnostic.hint;
    return json;
}

} // namespace Vex
