#include "vex/diagnostic.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace Vex {

void Print(std::ostream& out, const CSourceText& source, const Diagnostic& diagnostic)
{
    const SourcePlace place = source.PlaceOf(diagnostic.position);
    const std::string_view line = source.LineOf(diagnostic.position);
    // The caret stands below its character, whatever the width of a tab is and however many bytes a
    // character has.
    std::string indent;
    for (char c : line.substr(0, std::min(place.column - 1, line.size())))
        if (c == '\t' || (static_cast<unsigned char>(c) & 0xC0) != 0x80)
            indent += c == '\t' ? '\t' : ' ';
    out << source.Name() << ':' << place.line << ':' << place.column << ": " << diagnostic.message
        << '\n';
    out << "    " << line << "\n    " << indent << "^\n";
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
