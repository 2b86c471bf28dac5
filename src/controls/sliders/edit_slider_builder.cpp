#include "controls/sliders/edit_slider_builder.h"

#include "controls/base/label_text.h"
#include "controls/sliders/orlen_slider.h"
#include "layout/build/layout_owner.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr PropertyRow kLabel{VexName("label"), 0, "what stands before it; dragging it scrubs"};
constexpr PropertyRow kLabelFont{VexName("label_font"), kFont_UI, "of the label"};
constexpr PropertyRow kPosition{VexName("slider_edit_pos"), kPosEdit_Default,
                                "where the field stands; at the right by default"};
constexpr PropertyRow kRows[] = {kLabel, kLabelFont, kPosition};

constexpr VexName kLabelWidth("label_width");
constexpr VexName kValue("number_value");
constexpr VexName kSliderValue("slider_value");
constexpr VexName kFieldEnds[] = {VexName("number_minimum"), VexName("number_maximum")};
constexpr VexName kSliderEnds[] = {VexName("slider_minimum"), VexName("slider_maximum")};

EEditPosition ReadPosition(const LayoutOwner& owner)
{
    return static_cast<EEditPosition>(owner.Properties().Integer(kPosition));
}

// As wide as the solver makes it where labels of several views form a column.
double LabelWidth(const LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    const CText label = reader.Label(kLabel);
    if (std::int32_t width = 0; reader.TryInteger(kLabelWidth, width))
        return width;
    if (label.IsEmpty())
        return 0.0;
    return MeasureLabel(label.View(), static_cast<EFontKind>(reader.Integer(kLabelFont)),
                        owner.fCurrentView);
}

// The ends that are given for one part count for the other as well.
void ShareEnds(CEditSlider& pane, const CPropertyReader& reader)
{
    double low = pane.Field().GetMinimum();
    double high = pane.Field().GetMaximum();
    SValueRange range = pane.Slider().GetRange();
    if (!reader.TryDecimal(kFieldEnds[0], low))
        reader.TryDecimal(kSliderEnds[0], low);
    if (!reader.TryDecimal(kFieldEnds[1], high))
        reader.TryDecimal(kSliderEnds[1], high);
    if (!reader.TryDecimal(kSliderEnds[0], range.first))
        reader.TryDecimal(kFieldEnds[0], range.first);
    if (!reader.TryDecimal(kSliderEnds[1], range.last))
        reader.TryDecimal(kFieldEnds[1], range.last);
    pane.Field().SetRange(std::min(low, high), std::max(low, high));
    pane.Slider().SetRange(range);
}

} // namespace

Point CPaneBuilder<CEditSlider>::NaturalSize(const LayoutOwner& owner) const
{
    return CEditSlider::SizeOf(ReadPosition(owner), CPaneBuilder<CEditNumber>::NaturalSize(owner).x,
                               LabelWidth(owner));
}

void CPaneBuilder<CEditSlider>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CEditNumber>::AppendRows(rows);
    for (const PropertyRows& slider : SliderRows())
        rows.push_back(slider);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CEditSlider>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CEditSlider>(parameters.frame, parameters.id, parameters.options,
                                         parameters.binding);
}

// The value comes last, when both parts know their ends and steps.
void CPaneBuilder<CEditSlider>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    const CPropertyReader reader = owner.Properties();
    auto& both = static_cast<CEditSlider&>(pane);
    CPaneBuilder<CEditNumber>::ReadKeys(both.Field(), owner);
    ReadSlider(both.Slider(), reader);
    ShareEnds(both, reader);
    both.Slider().SetIncrements(both.Field().GetMinorIncrement(), both.Field().GetMajorIncrement());
    both.SetArrangement(ReadPosition(owner), CPaneBuilder<CEditNumber>::NaturalSize(owner).x);
    both.SetLabel(reader.Label(kLabel), static_cast<EFontKind>(reader.Integer(kLabelFont)),
                  LabelWidth(owner));
    double value = both.Field().GetValue();
    if (!reader.IsDefined(kValue))
        reader.TryDecimal(kSliderValue, value);
    both.SetValue(value);
    if (auto* const slider = dynamic_cast<COrlenSlider*>(&both.Slider()))
        slider->SetDefaultValue(both.GetValue());
}

std::unique_ptr<CPane>
CPaneBuilder<Project::PEditSlider>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<Project::PEditSlider>(parameters.frame, parameters.id,
                                                  parameters.options, parameters.binding);
}

} // namespace Kesto
