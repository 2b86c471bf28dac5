// What a layout text says about the place of one view, for its builder to complete: a builder fills
// in the natural size of its class and may change all the rest.
#pragma once

#include "foundation/base/geometry.h"

#include <cstdint>

namespace Kesto {

class CExpressionScope;

enum class RecordPlacement : std::int32_t { kNotGiven, kColumn, kRow, kOffscreen };

// In another order than the words of the language.
enum class RecordAlignment : std::int32_t {
    kNotGiven,
    kLeading,
    kTrailing,
    kCentre,
    kFill,
    kProportional
};

// From and to the numbers of align_left and so on. What is none of them becomes kNotGiven, and
// kNotGiven 0.
RecordAlignment AlignmentOfWord(std::int32_t word);
std::int32_t WordOfAlignment(RecordAlignment alignment);

struct ViewLayoutRecord {
    static constexpr double kNotGiven = -2147483648.0;

    // Reads all keys that `scope` or one around it defines, up to `stop` and without it; all others
    // are not given. Of a key with two names, such as outset_left and left_outset, the first
    // that is defined counts. An undefined number is not given; a text for a number is 0, unless it
    // has four bytes and so is a number.
    static ViewLayoutRecord Read(const CExpressionScope& scope, const CExpressionScope* stop);

    // Adds all that is given to `scope`, numbers cut to integers. Outsets go to the four sides, the
    // more special ones over the others.
    void Write(CExpressionScope& scope) const;

    // What the margins of the four sides come to: the nearest key that is given, or 0.
    Rect Margins() const;

    static bool IsGiven(double number) { return number != kNotGiven; }

    RecordPlacement placement = RecordPlacement::kNotGiven;
    RecordAlignment horizontal = RecordAlignment::kNotGiven;
    RecordAlignment vertical = RecordAlignment::kNotGiven;
    RecordAlignment childHorizontal = RecordAlignment::kNotGiven;
    RecordAlignment childVertical = RecordAlignment::kNotGiven;
    double width = kNotGiven;
    double height = kNotGiven;
    double left = kNotGiven;
    double top = kNotGiven;
    double right = kNotGiven;
    double bottom = kNotGiven;
    double leftOffset = kNotGiven;
    double topOffset = kNotGiven;
    double margin = kNotGiven;
    double marginWidth = kNotGiven;
    double marginHeight = kNotGiven;
    double marginLeft = kNotGiven;
    double marginTop = kNotGiven;
    double marginRight = kNotGiven;
    double marginBottom = kNotGiven;
    double outset = kNotGiven;
    double outsetWidth = kNotGiven;
    double outsetHeight = kNotGiven;
    double outsetLeft = kNotGiven;
    double outsetTop = kNotGiven;
    double outsetRight = kNotGiven;
    double outsetBottom = kNotGiven;
    double cushion = kNotGiven;
    double cushionX = kNotGiven;
    double cushionY = kNotGiven;
    double cushionLeft = kNotGiven;
    double cushionTop = kNotGiven;
    double cushionRight = kNotGiven;
    double cushionBottom = kNotGiven;
    double spacing = kNotGiven;
    double inset = kNotGiven;
    double topInset = kNotGiven;
};

} // namespace Kesto
