#include "controls/sliders/slider_builders.h"

#include "controls/base/natural_size.h"
#include "layout/build/layout_owner.h"

#include <array>

namespace Kesto {

namespace {

constexpr double kNaturalLength = 120.0;

constexpr PropertyRow kMinimum{VexName("slider_minimum"), 0, "the value at its left or bottom"};
constexpr PropertyRow kMaximum{VexName("slider_maximum"), 100, "the value at the other end"};
constexpr PropertyRow kValue{VexName("slider_value"), 0, "the value that it begins with"};
constexpr PropertyRow kPositions{VexName("slider_positions"), 0,
                                 "how many values it has, evenly spaced; all of them by default"};
constexpr PropertyRow kIncrement{VexName("increment"), 0,
                                 "a step of the arrow keys; a position, or a hundredth of the way"};
constexpr PropertyRow kMinor{VexName("minor_increment"), 0, "the same; comes before it"};
constexpr PropertyRow kMajor{VexName("major_increment"), 0,
                             "a step with Shift, and of the page keys; ten minor ones by default"};
constexpr PropertyRow kOrientation{VexName("slider_orientation"), kSlider_AutoOrient,
                                   "along which it goes; its longer side by default"};
constexpr PropertyRow kStyle{VexName("slider_style"), kSlider_Standard, "its look"};
constexpr PropertyRow kTicks{VexName("slider_ticks"), kTicks_None, "whether a value is marked"};
constexpr PropertyRow kTickPlace{VexName("slider_tick_loc"), 0, "which one"};
constexpr PropertyRow kFill{VexName("slider_fill"), kSliderFill_None,
                            "what its groove is filled with"};
constexpr PropertyRow kRows[] = {kMinimum, kMaximum, kValue,     kPositions, kOrientation,
                                 kStyle,   kTicks,   kTickPlace, kFill};
constexpr PropertyRow kStepRows[] = {kIncrement, kMinor, kMajor};

// The components of the two colours of a fill, in the order of the three ways to write one.
constexpr PropertyRow kColourRows[] = {
    {VexName("color1_r"), 0, "of a fill, at its left or bottom: red, 0 to 255"},
    {VexName("color1_g"), 0, "green"},
    {VexName("color1_b"), 0, "blue"},
    {VexName("color1_c"), 0, "cyan, 0 to 255"},
    {VexName("color1_m"), 0, "magenta"},
    {VexName("color1_y"), 0, "yellow"},
    {VexName("color1_h"), 0, "hue, 0 to 360"},
    {VexName("color1_s"), 0, "saturation, 0 to 100"},
    {VexName("color1_v"), 0, "value, 0 to 100"},
    {VexName("color2_r"), 0, "the same at the other end of a gradient"},
    {VexName("color2_g"), 0, ""},
    {VexName("color2_b"), 0, ""},
    {VexName("color2_c"), 0, ""},
    {VexName("color2_m"), 0, ""},
    {VexName("color2_y"), 0, ""},
    {VexName("color2_h"), 0, ""},
    {VexName("color2_s"), 0, ""},
    {VexName("color2_v"), 0, ""},
};

constexpr PropertyRow kDialOptions{VexName("angle_slider_options"), kAngleSlider_Default,
                                   "how it turns: a sum"};
constexpr PropertyRow kDialFlags[] = {
    {VexName("angle_slider_clockwise"), 0, "values grow clockwise"},
    {VexName("angle_slider_bidirectional"), 0, "the offset is the middle of its values"},
    {VexName("angle_slider_pin_value"), 0, "its values don't go round"},
};
constexpr PropertyRow kOffset{VexName("angle_offset"), 0,
                              "degrees, counter-clockwise from the right, where its values begin"};
constexpr PropertyRow kRange{VexName("angle_range"), 360, "degrees that its values lie on"};
constexpr PropertyRow kDialRows[] = {kDialOptions, kOffset, kRange};

constexpr std::int32_t kTurn = 360; // the values of a dial that gives none

SSliderLook ReadLook(const CPropertyReader& reader)
{
    SSliderLook look;
    look.style = static_cast<ESliderStyle>(reader.Integer(kStyle));
    look.orientation = static_cast<ESliderOrientation>(reader.Integer(kOrientation));
    look.fill = static_cast<ESliderFill>(reader.Integer(kFill));
    if (reader.Integer(kTicks) != kTicks_None)
        look.tick = reader.Decimal(kTickPlace);
    if (!look.HasFill())
        return look;
    const auto way = static_cast<std::size_t>(look.fill - kSliderFill_SolidRGB) % 3;
    for (std::size_t colour = 0; colour < 2; ++colour)
        for (std::size_t part = 0; part < 3; ++part)
            look.colours[colour][part] = reader.Decimal(kColourRows[colour * 9 + way * 3 + part]);
    return look;
}

SValueRange ReadRange(const CPropertyReader& reader)
{
    return {reader.Decimal(kMinimum), reader.Decimal(kMaximum), reader.Integer(kPositions)};
}

std::uint32_t ReadDialOptions(const CPropertyReader& reader)
{
    auto options = static_cast<std::uint32_t>(reader.Integer(kDialOptions));
    constexpr std::uint32_t kBits[] = {kAngleSlider_CW, kAngleSlider_BiDirectional,
                                       kAngleSlider_PinValue};
    for (std::size_t i = 0; i < std::size(kBits); ++i) {
        bool flag = false;
        if (reader.TryFlag(kDialFlags[i].key, flag))
            options = flag ? options | kBits[i] : options & ~kBits[i];
    }
    return options;
}

template <class Slider>
std::unique_ptr<CPane> MakeSlider(const PaneParameters& parameters)
{
    return std::make_unique<Slider>(parameters.frame, parameters.id, parameters.options,
                                    parameters.binding);
}

} // namespace

std::span<const PropertyRows> SliderRows()
{
    static constexpr PropertyRows kAll[] = {kRows, kColourRows};
    return kAll;
}

void ReadSlider(CCustomSlider& slider, const CPropertyReader& reader)
{
    slider.SetRange(ReadRange(reader));
    slider.SetLook(ReadLook(reader));
}

Point CPaneBuilder<CCustomSlider>::NaturalSize(const LayoutOwner& owner) const
{
    const Point size{kNaturalLength, CCustomSlider::kThickness};
    const bool isUpright = owner.Properties().Integer(kOrientation) == kSlider_Vertical;
    return isUpright ? Point{size.y, size.x} : size;
}

CView* CPaneBuilder<CCustomSlider>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    SetNaturalSize(owner.fLayoutRecord, NaturalSize(owner));
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CCustomSlider>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kStepRows);
    for (const PropertyRows& own : SliderRows())
        rows.push_back(own);
}

// The Tab key leads to them unless the text says otherwise.
PaneWord CPaneBuilder<CCustomSlider>::Options() const
{
    return {.fallback = kView_TabStop};
}

std::unique_ptr<CPane> CPaneBuilder<CCustomSlider>::MakePane(const PaneParameters& parameters) const
{
    return MakeSlider<CCustomSlider>(parameters);
}

void CPaneBuilder<CCustomSlider>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& slider = static_cast<CCustomSlider&>(pane);
    ReadSlider(slider, reader);
    const double minor = reader.Decimal(kMinor);
    slider.SetIncrements(minor > 0.0 ? minor : reader.Decimal(kIncrement), reader.Decimal(kMajor));
    slider.SetValue(reader.Decimal(kValue));
}

std::unique_ptr<CPane> CPaneBuilder<COrlenSlider>::MakePane(const PaneParameters& parameters) const
{
    return MakeSlider<COrlenSlider>(parameters);
}

void CPaneBuilder<COrlenSlider>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CCustomSlider>::ReadKeys(pane, owner);
    auto& slider = static_cast<COrlenSlider&>(pane);
    slider.SetDefaultValue(slider.GetValue());
}

void CPaneBuilder<CAngleSlider>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CCustomSlider>::AppendRows(rows);
    rows.push_back(kDialRows);
    rows.push_back(kDialFlags);
}

std::unique_ptr<CPane> CPaneBuilder<CAngleSlider>::MakePane(const PaneParameters& parameters) const
{
    return MakeSlider<CAngleSlider>(parameters);
}

Point CPaneBuilder<CAngleSlider>::NaturalSize(const LayoutOwner&) const
{
    return {CAngleSlider::kSide, CAngleSlider::kSide};
}

// Without ends of its own it has a turn of degrees.
void CPaneBuilder<CAngleSlider>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CCustomSlider>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& dial = static_cast<CAngleSlider&>(pane);
    const std::uint32_t options = ReadDialOptions(reader);
    if (!reader.IsDefined(kMinimum.key) && !reader.IsDefined(kMaximum.key)) {
        const double first = (options & kAngleSlider_BiDirectional) != 0 ? -kTurn / 2.0 : 0.0;
        dial.SetRange({first, first + kTurn, reader.Integer(kPositions)});
        dial.SetValue(reader.Decimal(kValue));
    }
    if (!reader.IsDefined(kMinor.key) && !reader.IsDefined(kIncrement.key))
        dial.SetIncrements(1.0, reader.Decimal(kMajor));
    dial.SetDial(options, reader.Decimal(kOffset), reader.Decimal(kRange));
}

} // namespace Kesto
