// The rules of the expression grammar, from the loosest binding to the tightest. Relations bind
// looser than equality.
#include "layout/language/expression_scope.h"

#include "layout/language/scope_rules.h"
#include "layout/language/vex_arithmetic.h"

#include <algorithm>

namespace Kesto {

namespace {

const CExpressionScope* gCallingScope = nullptr;

// Notes who calls a client function, and who called before.
class CCallingScope {
public:
    explicit CCallingScope(const CExpressionScope& scope)
        : fBefore(std::exchange(gCallingScope, &scope))
    {
    }
    ~CCallingScope() { gCallingScope = fBefore; }
    CCallingScope(const CCallingScope&) = delete;
    CCallingScope& operator=(const CCallingScope&) = delete;

private:
    const CExpressionScope* fBefore;
};

std::int32_t Both(std::int32_t a, std::int32_t b, bool holds)
{
    return Vex::AreDefined(a, b) && holds ? 1 : 0;
}

} // namespace

const CExpressionScope* CClientFunctions::CallingScope()
{
    return gCallingScope;
}

bool CExpressionScope::MatchLogical(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchAnd(cursor, result))
        return false;
    for (;;) {
        const char* at = cursor;
        std::int32_t right = 0;
        if (!MatchLiteral(at, "||") || !MatchAnd(at, right))
            return true;
        result = Both(result, right, result != 0 || right != 0);
        cursor = at;
        Matched(VexRule::kLogical, start, cursor);
    }
}

bool CExpressionScope::MatchAnd(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchRelational(cursor, result))
        return false;
    for (;;) {
        const char* at = cursor;
        std::int32_t right = 0;
        if (!MatchLiteral(at, "&&") || !MatchRelational(at, right))
            return true;
        result = Both(result, right, result != 0 && right != 0);
        cursor = at;
        Matched(VexRule::kAnd, start, cursor);
    }
}

// One comparison at most: what follows it is left for the caller, who takes it for a mistake.
bool CExpressionScope::MatchRelational(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchEquality(cursor, result))
        return false;
    const char* at = SkipVexSpace(cursor);
    const char sign = *at;
    if (sign != '<' && sign != '>')
        return true;
    ++at;
    const bool orEqual = *at == '=';
    if (orEqual)
        ++at;
    std::int32_t right = 0;
    if (!MatchEquality(at, right))
        return true;
    const bool holds =
        (sign == '<' ? result < right : result > right) || (orEqual && result == right);
    result = Both(result, right, holds);
    cursor = at;
    Matched(VexRule::kRelational, start, cursor);
    return true;
}

bool CExpressionScope::MatchEquality(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchAdditive(cursor, result))
        return false;
    const char* at = cursor;
    const bool wantsEqual = MatchLiteral(at, "==");
    std::int32_t right = 0;
    if ((!wantsEqual && !MatchLiteral(at, "!=")) || !MatchAdditive(at, right))
        return true;
    result = Both(result, right, (result == right) == wantsEqual);
    cursor = at;
    Matched(VexRule::kEquality, start, cursor);
    return true;
}

// The sign is looked at before a rule is tried: most sums have one summand, and this is the rule
// that every value goes through.
bool CExpressionScope::MatchAdditive(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchMultiplicative(cursor, result))
        return false;
    for (;;) {
        const char* at = SkipVexSpace(cursor);
        const char sign = *at;
        if (sign != '+' && sign != '-') {
            Expected(at, "an operator");
            return true;
        }
        ++at;
        std::int32_t right = 0;
        if (!MatchMultiplicative(at, right))
            return true;
        result = sign == '+' ? Vex::Add(result, right) : Vex::Subtract(result, right);
        cursor = at;
        Matched(VexRule::kAdditive, start, cursor);
    }
}

bool CExpressionScope::MatchMultiplicative(const char*& cursor, std::int32_t& result)
{
    const char* const start = cursor;
    if (!MatchUnary(cursor, result))
        return false;
    for (;;) {
        const char* at = SkipVexSpace(cursor);
        const char sign = *at;
        if (sign != '*' && sign != '/' && sign != '%')
            return true;
        ++at;
        std::int32_t right = 0;
        if (!MatchUnary(at, right))
            return true;
        // The percent sign is a second sign of division, not a remainder.
        result = sign == '*' ? Vex::Multiply(result, right) : Vex::Divide(result, right);
        cursor = at;
        Matched(VexRule::kMultiplicative, start, cursor);
    }
}

// Signs can be repeated without end, so each counts as a level of nesting.
bool CExpressionScope::MatchUnary(const char*& cursor, std::int32_t& result)
{
    const char* at = SkipVexSpace(cursor);
    const char sign = *at;
    if (sign != '+' && sign != '-' && !(sign == '!' && fLogical))
        return MatchPrimary(cursor, result);
    ++at;
    const CNestingGuard guard(*this, cursor);
    if (!MatchUnary(at, result))
        return false;
    if (sign == '-')
        result = Vex::Negate(result);
    else if (sign == '!')
        result = result == 0 ? 1 : 0;
    Matched(VexRule::kUnary, cursor, at);
    cursor = at;
    return true;
}

// A number wraps around at 32 bits. A name is a function only if a parenthesis follows and the
// function's own rule matches; else it is a variable, so a variable may be called min.
bool CExpressionScope::MatchPrimary(const char*& cursor, std::int32_t& result)
{
    const char* at = SkipVexSpace(cursor);
    if (IsVexDigit(*at)) {
        const char* const start = at;
        std::uint32_t integer = 0;
        for (; IsVexDigit(*at); ++at)
            integer = integer * 10 + CharClass(*at);
        result = Vex::Wrap(integer);
        Matched(VexRule::kInteger, start, at);
        cursor = at;
        return true;
    }
    if (!IsVexNameStart(*at)) {
        if (*at == '(')
            return MatchParenthesis(cursor, result);
        Expected(at, "an expression");
        return false;
    }
    VexName name;
    MatchName(at, name);
    const char* behind = at;
    if (*SkipVexSpace(at) == '(' && MatchFunction(name, behind, result)) {
        Matched(VexRule::kFunction, cursor, behind);
        cursor = behind;
        return true;
    }
    const VexValue* const variable = Resolve(name);
    result = variable != nullptr ? variable->integer : VexUndefined;
    Matched(VexRule::kVariable, cursor, at);
    cursor = at;
    return true;
}

const VexValue* CExpressionScope::Resolve(const VexName& name)
{
    const VexValue* const variable = FindVariable(name);
    if (variable == nullptr) {
        fLastUnknown = name.text.data();
        fLastUnknownLength = name.text.size();
    }
    return variable;
}

bool CExpressionScope::MatchParenthesis(const char*& cursor, std::int32_t& result)
{
    const CNestingGuard guard(*this, cursor);
    const char* at = cursor;
    if (!MatchLiteral(at, "(") ||
        !(fLogical ? MatchLogical(at, result) : MatchAdditive(at, result)) ||
        !MatchLiteral(at, ")"))
        return false;
    Matched(VexRule::kParenthesis, cursor, at);
    cursor = at;
    return true;
}

// Called with the cursor at the parenthesis that follows `name`. The language's own words win over
// a program's functions.
bool CExpressionScope::MatchFunction(const VexName& name, const char*& cursor, std::int32_t& result)
{
    const CNestingGuard guard(*this, cursor);
    if ((name.text == "min" || name.text == "max") &&
        MatchMinMax(name.text == "min", cursor, result))
        return true;
    if (name.text == "dim" && MatchDim(cursor, result))
        return true;
    if (name.text == "in" && fMembership && MatchMembership(cursor, result))
        return true;
    return fFunctions != nullptr && MatchClientCall(name, cursor, result);
}

// The undefined value counts as the number that it is.
bool CExpressionScope::MatchMinMax(bool wantsMin, const char*& cursor, std::int32_t& result)
{
    const char* at = cursor;
    std::int32_t best = 0;
    if (!MatchLiteral(at, "(") || !MatchAdditive(at, best) || !MatchLiteral(at, ","))
        return false;
    do {
        std::int32_t next = 0;
        if (!MatchAdditive(at, next))
            return false;
        best = wantsMin ? std::min(best, next) : std::max(best, next);
    } while (MatchLiteral(at, ","));
    if (!MatchLiteral(at, ")"))
        return false;
    result = best;
    cursor = at;
    return true;
}

bool CExpressionScope::MatchDim(const char*& cursor, std::int32_t& result)
{
    const char* at = cursor;
    std::int32_t a = 0;
    std::int32_t b = 0;
    if (!MatchLiteral(at, "(") || !MatchAdditive(at, a) || !MatchLiteral(at, ",") ||
        !MatchAdditive(at, b) || !MatchLiteral(at, ")"))
        return false;
    result = a > b ? Vex::WrappingSubtract(a, b) : 0;
    cursor = at;
    return true;
}

// Members are bits of one word: what doesn't fit into it is in no set.
bool CExpressionScope::MatchMembership(const char*& cursor, std::int32_t& result)
{
    const char* at = cursor;
    const auto bitOf = [](std::int32_t member) {
        return member >= 0 && member < 32 ? std::uint32_t{1} << member : std::uint32_t{0};
    };
    std::int32_t sought = 0;
    if (!MatchLiteral(at, "(") || !MatchAdditive(at, sought))
        return false;
    std::uint32_t members = 0;
    while (MatchLiteral(at, ",")) {
        std::int32_t member = 0;
        if (!MatchAdditive(at, member))
            return false;
        members |= bitOf(member);
    }
    if (!MatchLiteral(at, ")"))
        return false;
    result = (members & bitOf(sought)) != 0 ? 1 : 0;
    cursor = at;
    return true;
}

bool CExpressionScope::MatchClientCall(const VexName& name, const char*& cursor,
                                       std::int32_t& result)
{
    CExpressionScope arguments(this);
    const char* at = cursor;
    if (!MatchLiteral(at, "("))
        return false;
    do {
        if (!MatchNamedArgument(at, arguments))
            return false;
    } while (MatchLiteral(at, ","));
    if (!MatchLiteral(at, ")"))
        return false;
    const CCallingScope calling(*this);
    result = fFunctions->Call(arguments.Pool().InternString(name.text), arguments);
    cursor = at;
    return true;
}

bool CExpressionScope::MatchNamedArgument(const char*& cursor, CExpressionScope& arguments)
{
    const char* at = cursor;
    VexName name;
    VexContent value;
    if (!MatchName(at, name) || !MatchLiteral(at, ":") || !arguments.ParseValue(at, ",)", value))
        return false;
    arguments.AddVariable(name, value);
    Matched(VexRule::kNamedArgument, cursor, at);
    cursor = at;
    return true;
}

bool CExpressionScope::EvaluateCondition(const char* text)
{
    fLogical = fMembership = true;
    std::int32_t result = VexUndefined;
    return MatchLogical(text, result) && result != VexUndefined && result != 0;
}

bool CExpressionScope::IsCondition(const char* text)
{
    fLogical = fMembership = true;
    std::int32_t result = 0;
    return MatchLogical(text, result) && *SkipVexSpace(text) == 0;
}

std::int32_t CExpressionScope::EvaluateInteger(const char* text)
{
    fLogical = false;
    std::int32_t result = VexUndefined;
    if (!MatchAdditive(text, result) || *SkipVexSpace(text) != 0 || result == VexUndefined)
        ThrowParameterError();
    return result;
}

} // namespace Kesto
