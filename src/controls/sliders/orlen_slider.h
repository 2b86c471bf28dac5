// COrlenSlider, the slider of filters' dialogs: its groove is filled from 0 where the range has it,
// and a double click brings back the value that the layout gave.
#pragma once

#include "controls/sliders/custom_slider.h"

namespace Kesto {

class COrlenSlider : public CCustomSlider {
public:
    using CCustomSlider::CCustomSlider;

    double GetDefaultValue() const { return fDefaultValue; }
    void SetDefaultValue(double value) { fDefaultValue = value; }

    bool PrimaryMultiClick(const CMouseEvent& event, int count) override;

protected:
    double FillOrigin() const override;

private:
    double fDefaultValue = 0.0;
};

} // namespace Kesto
