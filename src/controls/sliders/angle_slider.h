// CAngleSlider, a dial.
//
// The values lie on an arc: the first end at the offset, the last the whole range of degrees on, in
// the dial's direction; in a dial that goes both ways the offset is the middle of the values.
// Degrees count from the right, counter-clockwise. On a full turn values go round, unless the dial
// pins them.
#pragma once

#include "controls/sliders/custom_slider.h"

namespace Kesto {

class CAngleSlider : public CCustomSlider {
public:
    static constexpr double kSide = 40.0;

    using CCustomSlider::CCustomSlider;

    // Bits of EAngleSliderOptions; degrees. A range of more than a turn, of 0 or below counts as a
    // turn.
    void SetDial(std::uint32_t options, double offset, double range);
    bool GoesRound() const { return fArc == kTurn && (fOptions & kAngleSlider_PinValue) == 0; }

    // Degrees of a value on the dial.
    double AngleOf(double value) const;

    Point GripOf(const Point&) const override { return {}; }
    double ValueAt(const Point& place) const override;
    double StepFrom(double value, double delta) const override;
    void DrawInContext(const CPaintEvent& event) override;

private:
    static constexpr double kTurn = 360.0;

    double Direction() const { return (fOptions & kAngleSlider_CW) != 0 ? -1.0 : 1.0; }
    double FirstAngle() const;

    std::uint32_t fOptions = kAngleSlider_Default;
    double fOffset = 0.0;
    double fArc = kTurn;
};

} // namespace Kesto
