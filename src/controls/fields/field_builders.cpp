#include "controls/fields/field_builders.h"

#include "controls/base/label_text.h"
#include "controls/base/natural_size.h"
#include "drawing/ports/system_port.h"
#include "layout/build/layout_owner.h"

#include <algorithm>
#include <limits>
#include <string>

namespace Kesto {
namespace {

constexpr PropertyRow kText{VexName("text"), 0, "what stands in it at first"};
constexpr PropertyRow kFont{VexName("text_font"), kFont_UI, "its font"};
constexpr PropertyRow kAlign{VexName("text_align"), kAlign_Default,
                             "how the text lies in it, both ways"};
constexpr PropertyRow kAlignX{VexName("text_align_x"), kAlign_Default, "from left to right"};
constexpr PropertyRow kAlignY{VexName("text_align_y"), kAlign_Default, "from top to bottom"};
constexpr PropertyRow kOptions{VexName("text_options"), kEdit_NoOptions, "a sum of options"};
constexpr PropertyRow kMaxCharacters{VexName("max_characters"), 0,
                                     "how many can be typed; 0 for no limit"};
constexpr PropertyRow kWidth{VexName("text_width"), 0, "of its text, in units"};
constexpr PropertyRow kDigits{VexName("text_digits"), 0, "its width, in digits"};
constexpr PropertyRow kCharacters{VexName("text_characters"), 0,
                                  "its width, in characters of average width"};
constexpr PropertyRow kLines{VexName("text_lines"), 1, "its height, in lines"};
constexpr PropertyRow kMinGrowLines{VexName("min_grow_lines"), 0, "as it grows"};
constexpr PropertyRow kMaxGrowLines{VexName("max_grow_lines"), 0, "as it grows; 0 for no limit"};
constexpr PropertyRow kMinGrowWidth{VexName("min_grow_width"), 0, "in units"};
constexpr PropertyRow kMaxGrowWidth{VexName("max_grow_width"), 128, "in units; 0 for no limit"};
constexpr PropertyRow kRows[] = {kText,         kFont,         kAlign,         kAlignX,
                                 kAlignY,       kOptions,      kMaxCharacters, kWidth,
                                 kDigits,       kCharacters,   kLines,         kMinGrowLines,
                                 kMaxGrowLines, kMinGrowWidth, kMaxGrowWidth};

// The keys that set or clear one option, in the order of the bits.
struct OptionRow {
    PropertyRow row;
    std::uint32_t bit;
    bool sets = true; // the key clears the bit otherwise
};
constexpr OptionRow kOptionRows[] = {
    {{VexName("text_multi_line"), 0, "has several lines"}, kEdit_MultiLine},
    {{VexName("text_auto_grow"), 0, "grows with its text"}, kEdit_AutoGrow},
    {{VexName("text_framed"), 1, "has a frame"}, kEdit_NoFrame, false},
    {{VexName("text_read_only"), 0, "can't be edited"}, kEdit_ReadOnly},
    {{VexName("text_password"), 0, "shows dots"}, kEdit_Password},
    {{VexName("text_can_scroll"), 0, "scrolls sideways instead of breaking lines"},
     kEdit_CanScroll},
    {{VexName("text_return_is_enter"), 0, "Return makes no new line"}, kEdit_ReturnIsEnter},
    {{VexName("text_ignore_fkeys"), 0, "function keys end in it"}, kEdit_IgnoreFKeys},
    {{VexName("text_no_range_alert"), 0, "corrects a number beyond the limits silently"},
     kEdit_NoRangeAlert},
    {{VexName("text_no_invalid_value_alert"), 0, "corrects what is no number silently"},
     kEdit_NoInvalidValueAlert},
};

constexpr auto kOptionKeys = [] {
    std::array<PropertyRow, std::size(kOptionRows)> rows{};
    std::ranges::transform(kOptionRows, rows.begin(), &OptionRow::row);
    return rows;
}();

constexpr PropertyRow kValue{VexName("number_value"), 0, "its value at first"};
constexpr PropertyRow kMinimum{VexName("number_minimum"), std::numeric_limits<std::int32_t>::min(),
                               "the least value"};
constexpr PropertyRow kMaximum{VexName("number_maximum"), std::numeric_limits<std::int32_t>::max(),
                               "the largest value"};
constexpr PropertyRow kFormat{VexName("number_format"), kNumber_Default, "a sum of options"};
constexpr PropertyRow kDecimalDigits{VexName("decimal_digits"), 2,
                                     "decimal places, or digits with integer_pad"};
constexpr PropertyRow kIncrement{VexName("increment"), 1, "what an arrow key adds"};
constexpr PropertyRow kMinorIncrement{VexName("minor_increment"), 1, "the same; comes first"};
constexpr PropertyRow kMajorIncrement{VexName("major_increment"), 10,
                                      "with Shift; ten minor ones unless given"};
constexpr PropertyRow kNoExpressions{VexName("disable_expr"), 0, "takes plain numbers only"};
constexpr PropertyRow kNumberRows[] = {kValue,          kMinimum,        kMaximum,
                                       kFormat,         kDecimalDigits,  kIncrement,
                                       kMinorIncrement, kMajorIncrement, kNoExpressions};

constexpr OptionRow kFormatRows[] = {
    {{VexName("decimal_number"), 0, "has decimal places"}, kNumber_Decimal},
    {{VexName("decimal_fixed"), 0, "shows all of them"}, kNumber_FixedDecimal},
    {{VexName("integer_pad"), 0, "has zeros in front"}, kNumber_PadInteger},
    {{VexName("show_plus"), 0, "has a plus above 0"}, kNumber_ShowPlus},
    {{VexName("wrap_around"), 0, "steps go on at the other limit"}, kNumber_WrapAround},
};

constexpr auto kFormatKeys = [] {
    std::array<PropertyRow, std::size(kFormatRows)> rows{};
    std::ranges::transform(kFormatRows, rows.begin(), &OptionRow::row);
    return rows;
}();

constexpr std::string_view kAverage = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kAllDigits = "0123456789";
constexpr int kRow = 16; // digits

std::uint32_t ReadBits(const CPropertyReader& reader, const PropertyRow& sum,
                       std::span<const OptionRow> rows)
{
    auto bits = static_cast<std::uint32_t>(reader.Integer(sum));
    for (const OptionRow& row : rows) {
        bool flag = false;
        if (reader.TryFlag(row.row.key, flag))
            bits = flag == row.sets ? bits | row.bit : bits & ~row.bit;
    }
    return bits;
}

// Measured in a row, since a single one is rounded up to a whole pixel.
double WidestDigit(const CSystemPort& port)
{
    double widest = 0.0;
    for (const char digit : kAllDigits)
        widest = std::max(widest, port.MeasureText(std::string(kRow, digit)) / kRow);
    return widest;
}

template <class Field>
std::unique_ptr<CPane> MakeField(const PaneParameters& parameters)
{
    return std::make_unique<Field>(parameters.frame, parameters.id, parameters.options,
                                   parameters.binding);
}

} // namespace

Point CPaneBuilder<CEditString>::NaturalSize(const LayoutOwner& owner) const
{
    const CPropertyReader reader = owner.Properties();
    const CSystemPort& port =
        MeasuringPort(owner.fCurrentView, static_cast<EFontKind>(reader.Integer(kFont)));
    std::int32_t digits = DefaultDigits();
    reader.TryInteger(kDigits.key, digits);
    const double average = port.MeasureText(kAverage) / static_cast<double>(kAverage.size());
    const double width =
        std::max({static_cast<double>(reader.Integer(kWidth)), digits * WidestDigit(port),
                  reader.Integer(kCharacters) * average});
    return CEditString::SizeOf(width, reader.Integer(kLines));
}

CView* CPaneBuilder<CEditString>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    SetNaturalSize(owner.fLayoutRecord, NaturalSize(owner));
    return CPaneBuilder<CSystemControl>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CEditString>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CSystemControl>::AppendRows(rows);
    rows.push_back(kRows);
    rows.push_back(kOptionKeys);
}

std::unique_ptr<CPane> CPaneBuilder<CEditString>::MakePane(const PaneParameters& parameters) const
{
    return MakeField<CEditString>(parameters);
}

void CPaneBuilder<CEditString>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CSystemControl>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& field = static_cast<CEditString&>(pane);
    std::int32_t x = reader.Integer(kAlign);
    std::int32_t y = x;
    reader.TryInteger(kAlignX.key, x);
    reader.TryInteger(kAlignY.key, y);
    field.SetTextOptions(ReadBits(reader, kOptions, kOptionRows));
    field.SetMaxChars(static_cast<std::size_t>(std::max(reader.Integer(kMaxCharacters), 0)));
    field.SetTextAlign(x, y);
    field.SetFont(static_cast<EFontKind>(reader.Integer(kFont)));
    field.SetGrowLimits({.minLines = reader.Integer(kMinGrowLines),
                         .maxLines = reader.Integer(kMaxGrowLines),
                         .minWidth = static_cast<double>(reader.Integer(kMinGrowWidth)),
                         .maxWidth = static_cast<double>(reader.Integer(kMaxGrowWidth))});
    if (CText text; reader.TryLabel(kText.key, text))
        field.SetText(text);
}

void CPaneBuilder<CEditNumber>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CEditString>::AppendRows(rows);
    rows.push_back(kNumberRows);
    rows.push_back(kFormatKeys);
}

std::unique_ptr<CPane> CPaneBuilder<CEditNumber>::MakePane(const PaneParameters& parameters) const
{
    return MakeField<CEditNumber>(parameters);
}

// The value comes after the keys that it is shown and clamped by. A text of its own is taken over
// when the field is left.
void CPaneBuilder<CEditNumber>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CEditString>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& field = static_cast<CEditNumber&>(pane);
    double minor = reader.Decimal(kIncrement);
    reader.TryDecimal(kMinorIncrement.key, minor);
    double major = 10.0 * minor;
    reader.TryDecimal(kMajorIncrement.key, major);
    field.SetNoExpressions(reader.Flag(kNoExpressions));
    field.SetNumberFormat(ReadBits(reader, kFormat, kFormatRows));
    field.SetDigits(reader.Integer(kDecimalDigits));
    field.SetIncrements(minor, major);
    field.SetValueAndRange(reader.Decimal(kValue), reader.Decimal(kMinimum),
                           reader.Decimal(kMaximum));
    if (CText text; reader.TryLabel(kText.key, text))
        field.SetText(text);
}

} // namespace Kesto
