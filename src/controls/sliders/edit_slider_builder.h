// The builders of sliders with a field. They read the keys of both parts.
#pragma once

#include "controls/fields/field_builders.h"
#include "controls/sliders/edit_slider.h"
#include "controls/sliders/slider_builders.h"

namespace Kesto {

// The keys of a field are read into the field, with its own builder's words.
template <>
class CPaneBuilder<CEditSlider> : public CPaneBuilder<CEditNumber> {
public:
    using CPaneBuilder<CEditNumber>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override { return {.required = kView_Target}; }
    Point NaturalSize(const LayoutOwner& owner) const override;
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<Project::PEditSlider> : public CPaneBuilder<CEditSlider> {
public:
    using CPaneBuilder<CEditSlider>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
