// The parser tells which of its conditions failed and what it looked for last. What the author most
// likely did is told here.
#include "vex/check.h"

#include "layout/language/expression_scope.h"
#include "layout/language/vex_text.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace Vex {

namespace {

using Kesto::VexRule;

bool IsOperator(std::string_view what)
{
    return what == "==" || what == "!=" || what == "&&" || what == "||";
}

// "a, b or c"; what is no description is quoted.
std::string JoinExpected(const SyntaxFailure& failure)
{
    std::vector<std::string> parts;
    for (std::string_view what : failure.expected) {
        if (IsOperator(what) && failure.Expects("an operator"))
            continue;
        const bool isDescription = what.find(' ') != std::string_view::npos;
        parts.push_back(isDescription ? std::string(what) : '\'' + std::string(what) + '\'');
    }
    std::string joined;
    for (std::size_t i = 0; i < parts.size(); ++i)
        joined += (i == 0 ? "" : i + 1 == parts.size() ? " or " : ", ") + parts[i];
    return joined;
}

// A name, or one character with all of its bytes.
std::string WordAt(const char* position)
{
    if (Kesto::IsVexNameStart(*position))
        return std::string(Kesto::ScanVexName(position).text);
    if (*position == 0)
        return "the end of the text";
    std::string character(1, *position);
    for (const char* next = position + 1; (static_cast<unsigned char>(*next) & 0xC0) == 0x80;
         ++next)
        character += *next;
    return character;
}

// A place where the parser gave up, with what is around it.
struct Scene {
    const CSourceText& source;
    const SyntaxFailure& failure;
    const char* at;
    char touching; // the character right before, or a zero
    char before;   // the last character before that is no white space, or a zero
};

Scene SceneOf(const CSourceText& source, const SyntaxFailure& failure)
{
    const char* const start = source.Text().c_str();
    const char* last = failure.position;
    while (last > start && Kesto::IsVexSpace(last[-1]))
        --last;
    return {source, failure, failure.position,
            failure.position > start ? failure.position[-1] : '\0', last > start ? last[-1] : '\0'};
}

bool IsNameCharacter(char c)
{
    return c != 0 && Kesto::CharClass(c) < Kesto::kCharOther;
}

// A habit of other languages, or a slip, that is known by where it leaves the parser.
struct Slip {
    bool (*fits)(const Scene&);
    const char* kind;
    const char* message;
    const char* hint;
};

constexpr Slip kSlips[] = {
    {[](const Scene& s) { return s.failure.Expects("a closing quote"); }, "syntax",
     "this string has no closing quote", "A string ends at the next '."},
    {[](const Scene& s) { return s.failure.Expects("as many names as heights"); }, "ampersand",
     "align_centers has not as many names as heights",
     "A name without an ampersand counts as a height."},
    {[](const Scene& s) {
         return *s.at == '#' || (*s.at == '/' && (s.at[1] == '/' || s.at[1] == '*')) ||
                ((*s.at == '/' || *s.at == '*') && s.touching == '/');
     },
     "comment", "there are no comments in a layout text", ""},
    {[](const Scene& s) { return *s.at == '"'; }, "quotes",
     "texts stand in single quotes, not in double ones", ""},
    {[](const Scene& s) { return *s.at == '|'; }, "syntax",
     "options are combined with +, not with |", ""},
    {[](const Scene& s) { return *s.at == '.' && Kesto::IsVexDigit(s.touching); }, "syntax",
     "numbers have no fraction", "Where a key takes one, the number is a text: '1.5'."},
    {[](const Scene& s) { return (*s.at == 'x' || *s.at == 'X') && s.touching == '0'; }, "syntax",
     "numbers are decimal", ""},
    {[](const Scene& s) { return IsNameCharacter(*s.at) && s.touching == '\''; }, "quotes",
     "the text before this ended at its second quote",
     "A text can't hold an apostrophe; the curved one, \xE2\x80\x99, is possible."},
    {[](const Scene& s) { return *s.at == ')' && s.before == ','; }, "syntax",
     "another property must follow the comma", "The last property has no comma behind it."},
    {[](const Scene& s) { return *s.at == '=' && s.failure.Expects(":"); }, "syntax",
     "a property is written with a colon", "Only assignments, in blocks, have an equals sign."},
    {[](const Scene& s) { return *s.at == ':' && s.failure.Expects("="); }, "syntax",
     "an assignment is written with an equals sign", "Only properties, in brackets, have a colon."},
};

// Of the brackets that are open at the end of the text, the last.
const char* UnclosedBrace(const CSourceText& source)
{
    std::vector<const char*> open;
    bool isInString = false;
    for (const char* at = source.Text().c_str(); *at != 0; ++at)
        if (*at == '\'')
            isInString = !isInString;
        else if (!isInString && *at == '{')
            open.push_back(at);
        else if (!isInString && *at == '}' && !open.empty())
            open.pop_back();
    return open.empty() ? nullptr : open.back();
}

std::optional<Diagnostic> DescribeNames(const Scene& scene)
{
    if (!Kesto::IsVexNameStart(*scene.at))
        return std::nullopt;
    const std::string word = WordAt(scene.at);
    if (scene.failure.Expects("&"))
        return Diagnostic{scene.at, "ampersand", "an ampersand is missing before '" + word + "'",
                          "Names that a statement assigns to are written &" + word + "."};
    if (IsNameCharacter(scene.before) && scene.failure.Expects("an operator"))
        return Diagnostic{scene.at, "syntax",
                          "expected " + JoinExpected(scene.failure) + ", but found '" + word + '\'',
                          "A text stands in single quotes."};
    return std::nullopt;
}

Diagnostic DescribeFailure(const CSourceText& source, const SyntaxFailure& failure)
{
    const Scene scene = SceneOf(source, failure);
    for (const Slip& slip : kSlips)
        if (slip.fits(scene))
            return {scene.at, slip.kind, slip.message, slip.hint};
    if (auto description = DescribeNames(scene))
        return *description;
    if (*scene.at == 0 && failure.Expects("}"))
        if (const char* const brace = UnclosedBrace(source))
            return {brace, "syntax", "this brace is never closed", ""};
    const std::string word = WordAt(scene.at);
    const std::string found = *scene.at == 0 ? word : '\'' + word + '\'';
    return {scene.at, "syntax", "expected " + JoinExpected(failure) + ", but found " + found, ""};
}

const char* EndOf(const CSourceText& source)
{
    return source.Text().c_str() + source.Text().size();
}

// What was read or looked for last.
const char* FurthestPlace(const CSourceText& source, const LayoutReading& reading)
{
    const char* const looked = reading.failure.position;
    const char* const read = reading.nodes.empty() ? nullptr : reading.nodes.back().start;
    return looked == nullptr && read == nullptr ? EndOf(source)
                                                : std::max(looked, read, std::less<>());
}

Diagnostic DescribeViewCount(const CSourceText& source, const LayoutReading& reading)
{
    const auto isView = [](const SyntaxNode& node) { return node.rule == VexRule::kView; };
    const auto first = std::ranges::find_if(reading.nodes, isView);
    if (first == reading.nodes.end())
        return {EndOf(source), "views", "there is no view in this text",
                "A layout holds exactly one outermost view."};
    const auto second = std::find_if(first + 1, reading.nodes.end(), isView);
    return {second->start, "views", "this is a second outermost view",
            "A layout holds exactly one. The first is " + std::string(first->Name()) + " in line " +
                std::to_string(source.PlaceOf(first->start).line) + "."};
}

} // namespace

Diagnostic ExplainError(const CSourceText& source, const LayoutReading& reading)
{
    if (reading.error == "Warning! (*definition == 0)")
        return DescribeFailure(source, reading.failure);
    if (reading.error == "Warning! (viewProxyList.list->size() == 1)")
        return DescribeViewCount(source, reading);
    const char* const furthest = FurthestPlace(source, reading);
    if (reading.error == "Warning! (divisor != 0)")
        return {furthest, "division", "a division by zero stands here", ""};
    if (reading.error == "Warning! (nesting < kMaxNesting)")
        return {furthest, "nesting",
                "this is nested deeper than " +
                    std::to_string(Kesto::CExpressionScope::kMaxNesting) + " levels",
                ""};
    return {furthest, "error", reading.error, ""};
}

} // namespace Vex
