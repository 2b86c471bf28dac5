// The rules of a number field: how its value reads, what a text means, which texts are in range,
// how arrow keys step. Numbers only; the field itself, its window and its alerts are elsewhere.
#pragma once

#include "layout/vocabulary/text_options.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Kesto {

// Takes the place of a value that an expression overflows to, whatever its sign.
inline constexpr double kOverflowValue = 3.4028234663852886e+38;

struct CNumberRules {
    double minimum = -2147483648.0;
    double maximum = 2147483647.0;
    std::uint32_t format = kNumber_Default; // ENumberFormat bits
    std::int32_t digits = 2;                // decimal places; characters with kNumber_PadInteger
    bool noExpressions = false;             // a text is a plain number
    std::string decimalPoint = ".";         // the user's, UTF-8

    // The value as text. Decimals are rounded half away from zero to `digits` places and shown with
    // no more than 13 significant digits, or with all places if fixed; other values are rounded to
    // a whole number. Padding zeros come after a minus sign.
    std::string ValueToText(double value) const;

    // What a text means; nothing if it means nothing. An empty text means nothing. A plain number
    // ends where the text stops being one, and takes full-width digits; a text without any digit in
    // front reads as 0. The value isn't clamped.
    std::optional<double> TextToValue(std::string_view text) const;

    // Into the range; what is not a number stays so.
    double Clamp(double value) const;

    // Whether a value counts as within the limits. With digits, what prints as the limit is the
    // limit.
    bool IsInRange(double value) const;

    // The value `delta` further: clamped, or around the ends with kNumber_WrapAround. Limits that
    // are stored the wrong way round count the right way there; equal ones change nothing.
    double Step(double value, double delta) const;

    // Whether a typed character may enter the field; `atStart`: it would become the first one,
    // where a minus is a sign and needs a negative minimum. Control characters may.
    bool LetsIn(std::uint32_t character, bool atStart) const;

private:
    std::string RoundedText(double value) const;
    std::string WholeText(double value) const;
};

} // namespace Kesto
