// What a person may type into a number field: numbers, + - * / and parentheses.
//
//   sum      = product { ("+" | "-") product }
//   product  = signed { ("*" | "/") signed }
//   signed   = { "+" | "-" } ( number | "(" sum ")" )
//   number   = digits [ "." digits ] [ exponent ], or "." digits
//
// Blanks may come between tokens. All arithmetic is that of doubles.
#pragma once

#include <string_view>

namespace Kesto {

enum class ExpressionStatus {
    kGood,
    kEmpty,    // nothing but blanks
    kBad,      // a word that isn't known, a missing operand or parenthesis, a division by zero
    kOverflow, // a number, or a result on the way, beyond the doubles
};

struct ExpressionResult {
    double value; // not a number unless the status is kGood
    ExpressionStatus status;
};

// Evaluates a text whose decimal point is "." Never throws. Parentheses nest kDeepestExpression
// levels at most; deeper is kBad.
ExpressionResult EvaluateExpression(std::string_view text) noexcept;

inline constexpr int kDeepestExpression = 200;

// Takes the number at the front of a text, as far as it is one. kBad, and nothing taken, if the
// text doesn't begin with one.
ExpressionResult TakeNumber(std::string_view& text) noexcept;

} // namespace Kesto
