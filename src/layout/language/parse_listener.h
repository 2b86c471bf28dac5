// The trace of a parse, for tools that need positions. The parser computes none of it when nobody
// listens.
#pragma once

#include <string_view>

namespace Kesto {

class CExpressionScope;

// What can match. Rules that only pass on what one other rule matched, such as a sum of a single
// summand, report nothing.
enum class VexRule {
    kName, // every name, once for each attempt at it
    kInteger,
    kString,
    kVariable,  // a name that was read in an expression
    kWholeName, // a name that is a value by itself
    kFunction,  // min, max, dim, in or a client function, with its arguments
    kParenthesis,
    kUnary,
    kMultiplicative, // operators and both sides; likewise the five below
    kAdditive,
    kEquality,
    kRelational,
    kAnd,
    kLogical,
    kNamedArgument,
    kValue,
    kProperty,
    kAssignment,
    kStep,
    kAlignCenters,
    kTargetName, // a name with an ampersand before it
    kBlock,
    kView,
};

class ParseListener {
public:
    virtual ~ParseListener() = default;

    // A rule matched the text from `start` to `end`. An enclosing rule may still fail and another
    // alternative read the same text again: whoever keeps events drops those that a later name,
    // number or string overlaps.
    virtual void Event(VexRule rule, const char* start, const char* end) = 0;

    // Asked when a name alone is a value and no scope defines it. False: the parser throws,
    // as without a listener; true: the value is undefined and the parse goes on. `name` points into
    // the text.
    virtual bool IsDefined(std::string_view name) = 0;

    // Something was looked for at `position` and not found, for example "','". Only the furthest
    // position explains a failed parse.
    virtual void Expected(const char* position, const char* what);

    // A block, or the text as a whole, has been read and `scope` holds its variables.
    virtual void ScopeEnds(const CExpressionScope& scope, const char* position);
};

} // namespace Kesto
