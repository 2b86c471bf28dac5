// The builders of sliders and dials.
#pragma once

#include "controls/sliders/angle_slider.h"
#include "controls/sliders/orlen_slider.h"
#include "layout/build/pane_builder.h"
#include "layout/build/property_reader.h"

#include <span>

namespace Kesto {

template <>
class CPaneBuilder<CCustomSlider> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override;
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
    virtual Point NaturalSize(const LayoutOwner& owner) const;
};

template <>
class CPaneBuilder<COrlenSlider> : public CPaneBuilder<CCustomSlider> {
public:
    using CPaneBuilder<CCustomSlider>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<CAngleSlider> : public CPaneBuilder<CCustomSlider> {
public:
    using CPaneBuilder<CCustomSlider>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
    Point NaturalSize(const LayoutOwner& owner) const override;
};

// For controls that have a slider among others: its range and look from its keys, which don't
// contain its steps. The value that was is pinned to the range.
void ReadSlider(CCustomSlider& slider, const CPropertyReader& reader);
std::span<const PropertyRows> SliderRows();

} // namespace Kesto
