#include "controls/fields/number_text.h"

#include "controls/fields/number_expression.h"
#include "foundation/base/unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace Kesto {
namespace {

constexpr std::uint32_t kFullWidthZero = 0xFF10;
constexpr std::uint32_t kDelete = 127;

// All decimal places that a double can have; more would only be zeros.
constexpr std::int32_t kMostDigits = 340;

bool IsAsciiDigit(std::uint32_t character)
{
    return character >= '0' && character <= '9';
}

bool IsFullWidthDigit(std::uint32_t character)
{
    return character >= kFullWidthZero && character <= kFullWidthZero + 9;
}

double PowerOfTen(std::int32_t digits)
{
    return std::pow(10.0, std::clamp(digits, 0, kMostDigits));
}

// `value` in units of the last place, as the nearest whole number for values from 0 up. Both limits
// and the value between them go through it, so that its bias below 0 cancels out.
double Scaled(double value, double places)
{
    return std::trunc(value * places + 0.5);
}

std::string Printed(double value, std::chars_format format, int precision)
{
    std::array<char, 320 + kMostDigits> room;
    const auto [end, error] =
        std::to_chars(room.data(), room.data() + room.size(), value, format, precision);
    return error == std::errc() ? std::string(room.data(), end) : std::string();
}

std::string Replaced(std::string text, std::string_view from, std::string_view to, bool all)
{
    if (from == to || from.empty())
        return text;
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = all ? text.find(from, at + to.size()) : std::string::npos)
        text.replace(at, from.size(), to);
    return text;
}

std::string WithAsciiDigits(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        const std::uint32_t character = TakeCharacter(text);
        AppendCharacter(plain,
                        IsFullWidthDigit(character) ? character - kFullWidthZero + '0' : character);
    }
    return plain;
}

// As runtimes read a number: blanks, a sign, then as much as is one; the rest doesn't count.
std::optional<double> PlainNumber(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos)
        return std::nullopt;
    text.remove_prefix(start);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const ExpressionResult number = TakeNumber(text);
    double value = 0.0;
    if (number.status == ExpressionStatus::kGood)
        value = number.value;
    else if (number.status == ExpressionStatus::kOverflow)
        value = kOverflowValue;
    return negative ? -value : value;
}

} // namespace

std::string CNumberRules::ValueToText(double value) const
{
    std::string text = (format & kNumber_Decimal) != 0 ? RoundedText(value) : WholeText(value);
    if ((format & kNumber_ShowPlus) != 0 && value > 0)
        text.insert(text.begin(), '+');
    return text;
}

std::string CNumberRules::RoundedText(double value) const
{
    const double places = PowerOfTen(digits);
    const double scaled = value < 0 ? value * places - 0.5 : value * places + 0.5;
    // A value too large to be scaled has no decimal places.
    const double rounded = std::isfinite(scaled) ? std::trunc(scaled) / places : value;
    const bool fixed = (format & kNumber_FixedDecimal) != 0;
    std::string text =
        fixed ? Printed(rounded, std::chars_format::fixed, std::clamp(digits, 0, kMostDigits))
              : Printed(rounded, std::chars_format::general, 13);
    return Replaced(std::move(text), ".", decimalPoint, false);
}

std::string CNumberRules::WholeText(double value) const
{
    const double whole = std::round(value);
    std::string text = Printed(whole == 0 ? 0.0 : whole, std::chars_format::fixed, 0);
    if ((format & kNumber_PadInteger) != 0) {
        const auto wanted = static_cast<std::size_t>(std::clamp(digits, 0, kMostDigits));
        if (text.size() < wanted)
            text.insert(text.starts_with('-') ? 1 : 0, wanted - text.size(), '0');
    }
    return text;
}

std::optional<double> CNumberRules::TextToValue(std::string_view text) const
{
    if (noExpressions)
        return PlainNumber(Replaced(WithAsciiDigits(text), decimalPoint, ".", true));
    const ExpressionResult result =
        EvaluateExpression(Replaced(std::string(text), decimalPoint, ".", true));
    if (result.status == ExpressionStatus::kOverflow)
        return kOverflowValue;
    return result.status == ExpressionStatus::kGood ? std::optional(result.value) : std::nullopt;
}

double CNumberRules::Clamp(double value) const
{
    if (value < minimum)
        return minimum;
    return value > maximum ? maximum : value;
}

bool CNumberRules::IsInRange(double value) const
{
    if (digits < 1)
        return minimum <= value && value <= maximum;
    const double places = PowerOfTen(digits);
    const double scaled = Scaled(value, places);
    return Scaled(minimum, places) <= scaled && scaled <= Scaled(maximum, places);
}

double CNumberRules::Step(double value, double delta) const
{
    if ((format & kNumber_WrapAround) == 0)
        return Clamp(value + delta);
    const double low = std::min(minimum, maximum);
    const double range = std::max(minimum, maximum) - low;
    if (!(range > 0) || !std::isfinite(range))
        return value;
    const double offset = std::fmod(value + delta - low, range);
    return (offset < 0 ? offset + range : offset) + low;
}

bool CNumberRules::LetsIn(std::uint32_t character, bool atStart) const
{
    if (character < ' ' || character == kDelete || IsAsciiDigit(character))
        return true;
    if (character == '-')
        return minimum < 0 || (!atStart && !noExpressions);
    std::string_view point = decimalPoint;
    if (!point.empty() && TakeCharacter(point) == character)
        return !noExpressions || (format & kNumber_Decimal) != 0;
    if (noExpressions)
        return IsFullWidthDigit(character) ||
               (character == '+' && (format & kNumber_ShowPlus) != 0 && maximum >= 0);
    return character == '.' || character == '+' || character == '*' || character == '/' ||
           character == '(' || character == ')';
}

} // namespace Kesto
