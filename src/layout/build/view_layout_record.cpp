#include "layout/build/view_layout_record.h"

#include "layout/language/expression_scope.h"
#include "layout/placement/pinned.h"
#include "layout/vocabulary/placement_words.h"

#include <cmath>
#include <span>

namespace Kesto {

namespace {

using Record = ViewLayoutRecord;

struct AlignmentRow {
    RecordAlignment Record::*field;
    VexName key;
};

constexpr AlignmentRow kAlignments[] = {
    {&Record::horizontal, VexName("horizontal")},
    {&Record::vertical, VexName("vertical")},
    {&Record::childHorizontal, VexName("child_horizontal")},
    {&Record::childVertical, VexName("child_vertical")},
};

struct NumberRow {
    double Record::*field;
    VexName key;
    VexName otherName; // of the same key, or empty
};

constexpr NumberRow kNumbers[] = {
    {&Record::width, VexName("width"), {}},
    {&Record::height, VexName("height"), {}},
    {&Record::left, VexName("left"), {}},
    {&Record::top, VexName("top"), {}},
    {&Record::right, VexName("right"), {}},
    {&Record::bottom, VexName("bottom"), {}},
    {&Record::leftOffset, VexName("left_offset"), {}},
    {&Record::topOffset, VexName("top_offset"), {}},
    {&Record::margin, VexName("margin"), {}},
    {&Record::marginWidth, VexName("margin_width"), {}},
    {&Record::marginHeight, VexName("margin_height"), {}},
    {&Record::marginLeft, VexName("margin_left"), {}},
    {&Record::marginTop, VexName("margin_top"), {}},
    {&Record::marginRight, VexName("margin_right"), {}},
    {&Record::marginBottom, VexName("margin_bottom"), {}},
    {&Record::cushion, VexName("cushion"), {}},
    {&Record::cushionX, VexName("cushion_x"), {}},
    {&Record::cushionY, VexName("cushion_y"), {}},
    {&Record::cushionLeft, VexName("cushion_left"), {}},
    {&Record::cushionTop, VexName("cushion_top"), {}},
    {&Record::cushionRight, VexName("cushion_right"), {}},
    {&Record::cushionBottom, VexName("cushion_bottom"), {}},
    {&Record::spacing, VexName("spacing"), {}},
    {&Record::inset, VexName("inset"), {}},
    {&Record::topInset, VexName("top_inset"), {}},
};

constexpr NumberRow kOutsets[] = {
    {&Record::outset, VexName("outset"), {}},
    {&Record::outsetWidth, VexName("outset_width"), VexName("width_outset")},
    {&Record::outsetHeight, VexName("outset_height"), VexName("height_outset")},
    {&Record::outsetLeft, VexName("outset_left"), VexName("left_outset")},
    {&Record::outsetTop, VexName("outset_top"), VexName("top_outset")},
    {&Record::outsetRight, VexName("outset_right"), VexName("right_outset")},
    {&Record::outsetBottom, VexName("outset_bottom"), VexName("bottom_outset")},
};

// What an outset is written to, in an order in which the more special ones come last.
struct OutsetTarget {
    double Record::*field;
    LayoutKey key;
};

constexpr OutsetTarget kOutsetTargets[] = {
    {&Record::outset, LayoutKey::kOutset},
    {&Record::outset, LayoutKey::kLeftOutset},
    {&Record::outset, LayoutKey::kTopOutset},
    {&Record::outset, LayoutKey::kRightOutset},
    {&Record::outset, LayoutKey::kBottomOutset},
    {&Record::outsetWidth, LayoutKey::kLeftOutset},
    {&Record::outsetWidth, LayoutKey::kRightOutset},
    {&Record::outsetHeight, LayoutKey::kTopOutset},
    {&Record::outsetHeight, LayoutKey::kBottomOutset},
    {&Record::outsetLeft, LayoutKey::kLeftOutset},
    {&Record::outsetTop, LayoutKey::kTopOutset},
    {&Record::outsetRight, LayoutKey::kRightOutset},
    {&Record::outsetBottom, LayoutKey::kBottomOutset},
};

// VexUndefined as a double is kNotGiven.
double NumberOf(const VexValue& value)
{
    return value.integer == VexUndefined && *value.text != 0 ? 0.0 : value.integer;
}

double ReadNumber(const NumberRow& row, const CExpressionScope& scope, const CExpressionScope* stop)
{
    const VexValue* value = scope.FindVariable(row.key, stop);
    if (value == nullptr && !row.otherName.text.empty())
        value = scope.FindVariable(row.otherName, stop);
    return value != nullptr ? NumberOf(*value) : Record::kNotGiven;
}

std::int32_t ReadWord(const VexName& key, const CExpressionScope& scope,
                      const CExpressionScope* stop)
{
    const VexValue* const value = scope.FindVariable(key, stop);
    return value != nullptr ? value->integer : VexUndefined;
}

std::int32_t Cut(double number)
{
    return PinnedRound(std::trunc(number));
}

} // namespace

RecordAlignment AlignmentOfWord(std::int32_t word)
{
    switch (word) {
    case kAlign_InFill:
        return RecordAlignment::kFill;
    case kAlign_InCenter:
        return RecordAlignment::kCentre;
    case kAlign_InProportional:
        return RecordAlignment::kProportional;
    case kAlign_InLeading:
        return RecordAlignment::kLeading;
    case kAlign_InTrailing:
        return RecordAlignment::kTrailing;
    default:
        return RecordAlignment::kNotGiven;
    }
}

std::int32_t WordOfAlignment(RecordAlignment alignment)
{
    for (std::int32_t word = kAlign_InFill; word <= kAlign_InTrailing; ++word)
        if (AlignmentOfWord(word) == alignment)
            return word;
    return 0;
}

ViewLayoutRecord ViewLayoutRecord::Read(const CExpressionScope& scope, const CExpressionScope* stop)
{
    ViewLayoutRecord record;
    const std::int32_t placement = ReadWord(NameOf(LayoutKey::kPlacement), scope, stop);
    if (placement >= kPlace_Column && placement <= kPlace_Offscreen)
        record.placement = static_cast<RecordPlacement>(placement + 1);
    for (const AlignmentRow& row : kAlignments)
        record.*row.field = AlignmentOfWord(ReadWord(row.key, scope, stop));
    for (const std::span rows : {std::span<const NumberRow>(kNumbers), {kOutsets}})
        for (const NumberRow& row : rows)
            record.*row.field = ReadNumber(row, scope, stop);
    return record;
}

Rect ViewLayoutRecord::Margins() const
{
    const auto side = [this](double near, double axis) {
        return IsGiven(near) ? near : IsGiven(axis) ? axis : IsGiven(margin) ? margin : 0.0;
    };
    return {side(marginLeft, marginWidth), side(marginTop, marginHeight),
            side(marginRight, marginWidth), side(marginBottom, marginHeight)};
}

void ViewLayoutRecord::Write(CExpressionScope& scope) const
{
    if (placement != RecordPlacement::kNotGiven)
        scope.AddVariable(LayoutKey::kPlacement, static_cast<std::int32_t>(placement) - 1);
    for (const AlignmentRow& row : kAlignments)
        if (this->*row.field != RecordAlignment::kNotGiven)
            scope.AddConstant(row.key, WordOfAlignment(this->*row.field));
    for (const NumberRow& row : kNumbers)
        if (IsGiven(this->*row.field))
            scope.AddConstant(row.key, Cut(this->*row.field));
    for (const OutsetTarget& row : kOutsetTargets)
        if (IsGiven(this->*row.field))
            scope.AddVariable(row.key, Cut(this->*row.field));
}

} // namespace Kesto
