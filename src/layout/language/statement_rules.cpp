// The rules for values, assignments and statements.
#include "layout/language/expression_scope.h"

#include "layout/language/scope_rules.h"
#include "layout/language/vex_arithmetic.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Kesto {

// Scans the whole name even when no name is called for, as an attempt would.
bool CExpressionScope::MatchName(const char*& cursor, VexName& name) const
{
    const char* const start = SkipVexSpace(cursor);
    if (!IsVexNameStart(*start)) {
        Expected(start, "a name");
        return false;
    }
    name = ScanVexName(start);
    cursor = start + name.text.size();
    Matched(VexRule::kName, start, cursor);
    return true;
}

// A name by itself hands over its text as well as its number, and must be known. The same name in a
// sum is a number only, and may be unknown: so which it is depends on the character after it.
bool CExpressionScope::ParseValue(const char*& cursor, const char (&stops)[3], VexContent& value)
{
    const char* const start = SkipVexSpace(cursor);
    const char* at = start;
    if (IsVexNameStart(*start)) {
        VexName name;
        MatchName(at, name);
        const char behind = *SkipVexSpace(at);
        if (behind != 0 && (behind == stops[0] || behind == stops[1])) {
            const VexValue* const variable = FindVariable(name);
            if (variable != nullptr)
                value = {variable->integer, variable->text};
            else if (fListener != nullptr && fListener->IsDefined(name.text))
                value = {};
            else
                throw std::logic_error("Warning! (variable != NULL)");
            Matched(VexRule::kWholeName, start, at);
            Matched(VexRule::kValue, start, at);
            cursor = at;
            return true;
        }
        at = start;
    } else if (*start == '\'' && MatchStringValue(at, value)) {
        Matched(VexRule::kString, start, at);
        Matched(VexRule::kValue, start, at);
        cursor = at;
        return true;
    }
    std::int32_t integer = 0;
    if (!MatchAdditive(at, integer))
        return false;
    value = {integer, kVexNoText};
    Matched(VexRule::kValue, start, at);
    cursor = at;
    return true;
}

// A text of four bytes is a code as well, its first byte highest. The bytes are signed, so that one
// above 127 borrows from the byte before it.
bool CExpressionScope::MatchStringValue(const char*& cursor, VexContent& value)
{
    const char* const text = cursor + 1;
    const char* const end = std::strchr(text, '\'');
    if (end == nullptr) {
        Expected(cursor, "a closing quote");
        return false;
    }
    const std::string_view bytes(text, static_cast<std::size_t>(end - text));
    value = {VexUndefined, fPool->InternString(bytes)};
    if (bytes.size() == 4) {
        std::uint32_t code = 0;
        for (char byte : bytes)
            code = code * 256 + Vex::Bits(static_cast<signed char>(byte));
        value.integer = Vex::Wrap(code);
    }
    cursor = end + 1;
    return true;
}

bool CExpressionScope::MatchAssignment(const VexName& name, const char*& cursor)
{
    const char* at = cursor;
    VexContent value;
    if (!MatchLiteral(at, "=") || !ParseValue(at, ";;", value) || !MatchLiteral(at, ";"))
        return false;
    AddVariable(name, value);
    Matched(VexRule::kAssignment, name.text.data(), at);
    cursor = at;
    return true;
}

bool CExpressionScope::MatchStatement(const char*& cursor)
{
    return MatchStep(cursor) || MatchAlignCenters(cursor);
}

bool CExpressionScope::MatchStatementOrAssignment(const char*& cursor)
{
    if (MatchStatement(cursor))
        return true;
    const char* at = cursor;
    VexName name;
    if (!MatchName(at, name) || !MatchAssignment(name, at))
        return false;
    cursor = at;
    return true;
}

// One or more "&name" up to the end of a statement. Nothing is assigned before the statement is
// known to be whole, so a failed rule leaves no trace: this pass counts the names, and
// AssignTargets runs over them again.
bool CExpressionScope::MatchTargets(const char*& cursor, std::size_t& count, std::size_t wanted)
{
    count = 0;
    const char* at = cursor;
    do {
        VexName name;
        if (!MatchLiteral(at, "&"))
            return false;
        const char* const start = at;
        if (!MatchName(at, name))
            return false;
        Matched(VexRule::kTargetName, start, at);
        ++count;
    } while (MatchLiteral(at, ","));
    if (wanted != kAnyCount && count != wanted) {
        Expected(at, "as many names as heights");
        return false;
    }
    if (!MatchLiteral(at, ")") || !MatchLiteral(at, ";"))
        return false;
    cursor = at;
    return true;
}

// Gives each of the names that MatchTargets has passed, the i-th of them, the value `valueOf(i)`.
template <class ValueOf>
void CExpressionScope::AssignTargets(const char* names, std::size_t count, ValueOf valueOf)
{
    for (std::size_t i = 0; i < count; ++i) {
        names = std::strchr(names, '&') + 1;
        AddVariable(ScanVexName(SkipVexSpace(names)), VexContent{valueOf(i), kVexNoText});
    }
}

bool CExpressionScope::MatchStep(const char*& cursor)
{
    const char* at = cursor;
    std::int32_t value = 0;
    std::int32_t increment = 0;
    std::size_t count = 0;
    if (!MatchLiteral(at, "step") || !MatchLiteral(at, "(") || !MatchAdditive(at, value) ||
        !MatchLiteral(at, ",") || !MatchAdditive(at, increment) || !MatchLiteral(at, ","))
        return false;
    const char* const names = at;
    if (!MatchTargets(at, count, kAnyCount))
        return false;
    // Like a sum in the text: once undefined, the rest of the run is.
    AssignTargets(names, count,
                  [&](std::size_t) { return std::exchange(value, Vex::Add(value, increment)); });
    Matched(VexRule::kStep, cursor, at);
    cursor = at;
    return true;
}

bool CExpressionScope::MatchAlignCenters(const char*& cursor)
{
    const char* at = cursor;
    std::int32_t base = 0;
    if (!MatchLiteral(at, "align_centers") || !MatchLiteral(at, "(") || !MatchAdditive(at, base) ||
        !MatchLiteral(at, ","))
        return false;
    std::array<std::int32_t, kMaxAlignedHeights> heights;
    std::size_t heightCount = 0;
    std::int32_t largest = 0;
    std::int32_t height = 0;
    while (MatchAdditive(at, height)) {
        if (heightCount == heights.size())
            throw std::logic_error("Warning! (heightCount < kMaxAlignedHeights)");
        heights[heightCount++] = height;
        largest = std::max(largest, height);
        if (!MatchLiteral(at, ","))
            return false;
    }
    const char* const names = at;
    std::size_t count = 0;
    if (heightCount == 0 || !MatchTargets(at, count, heightCount))
        return false;
    // Without a base all are undefined; without a height its own place is, and the others keep to
    // the largest height that is known.
    AssignTargets(names, count, [&](std::size_t i) {
        return Vex::AreDefined(base, heights[i])
                   ? Vex::WrappingAdd(base, Vex::WrappingSubtract(largest, heights[i]) / 2)
                   : VexUndefined;
    });
    Matched(VexRule::kAlignCenters, cursor, at);
    cursor = at;
    return true;
}

void CExpressionScope::EvaluateStatements(const char* text)
{
    fLogical = false;
    if (!MatchStatementOrAssignment(text))
        ThrowParameterError();
    while (MatchStatementOrAssignment(text))
        continue;
    if (*SkipVexSpace(text) != 0)
        ThrowParameterError();
}

} // namespace Kesto
