#include "vex/check.h"

#include "layout/language/expression_scope.h"
#include "layout/language/vex_text.h"

#include <algorithm>
#include <functional>

namespace Vex {

namespace {

using Kesto::VexRule;

bool IsOperator(std::string_view what)
{
    return what == "==" || what == "!=" || what == "&&" || what == "||";
}

// "a, b or c"; what is no description stands in quotes.
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

std::string WordAt(const char* position)
{
    if (Kesto::IsVexNameStart(*position))
        return std::string(Kesto::ScanVexName(position).text);
    return *position == 0 ? "the end of the text" : std::string(1, *position);
}

Diagnostic DescribeFailure(const SyntaxFailure& failure)
{
    const std::string word = WordAt(failure.position);
    if (failure.Expects("a closing quote"))
        return {failure.position, "syntax", "this string has no closing quote",
                "A string ends at the next '."};
    if (failure.Expects("&") && Kesto::IsVexNameStart(*failure.position))
        return {failure.position, "ampersand", "an ampersand is missing before '" + word + "'",
                "Names that a statement assigns to are written &" + word + "."};
    if (failure.Expects("as many names as heights"))
        return {failure.position, "ampersand", "align_centers has not as many names as heights",
                "A name without an ampersand counts as a height."};
    const std::string found = *failure.position == 0 ? word : '\'' + word + '\'';
    return {failure.position, "syntax",
            "expected " + JoinExpected(failure) + ", but found " + found, ""};
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

// The parser's message tells which condition failed; what it means for a reader is told here.
Diagnostic DescribeError(const CSourceText& source, const LayoutReading& reading)
{
    const char* const furthest = FurthestPlace(source, reading);
    if (reading.error == "Warning! (*definition == 0)")
        return DescribeFailure(reading.failure);
    if (reading.error == "Warning! (divisor != 0)")
        return {furthest, "division", "a division by zero stands here", ""};
    if (reading.error == "Warning! (nesting < kMaxNesting)")
        return {furthest, "nesting",
                "this is nested deeper than " +
                    std::to_string(Kesto::CExpressionScope::kMaxNesting) + " levels",
                ""};
    if (reading.error != "Warning! (viewProxyList.list->size() == 1)")
        return {furthest, "error", reading.error, ""};
    const auto isView = [](const SyntaxNode& node) { return node.rule == VexRule::kView; };
    const auto first = std::ranges::find_if(reading.nodes, isView);
    if (first == reading.nodes.end())
        return {EndOf(source), "views", "there is no view in this text",
                "A layout holds exactly one outermost view."};
    const auto second = std::find_if(first + 1, reading.nodes.end(), isView);
    return {second->start, "views", "this is a second outermost view",
            "A layout holds exactly one outermost view."};
}

} // namespace

std::vector<Diagnostic> CheckLayout(const CSourceText& source)
{
    const LayoutReading reading = ReadLayout(source);
    std::vector<Diagnostic> found;
    CheckNames(reading.nodes, found);
    if (!reading.error.empty())
        found.push_back(DescribeError(source, reading));
    std::ranges::stable_sort(found, {}, &Diagnostic::position);
    return found;
}

} // namespace Vex
