// CCustomSlider, a thumb on a groove, and the base of all that drag a value.
//
// A value is sent as a CValMsg<CNumber>: phase 0 for those that pass by in a drag, phase 1 for the
// final one. A drag that is broken off passes through the value that it started from once more. A
// slider without an id is silent. Quiet setters pin and snap; NaN changes nothing.
#pragma once

#include "controls/base/drawn_control.h"
#include "controls/base/value_range.h"
#include "controls/sliders/slider_look.h"

namespace Kesto {

class CCustomSlider : public CDrawnControl {
public:
    static constexpr double kThickness = 20.0; // of its cell, across

    using CDrawnControl::CDrawnControl;

    double GetValue() const { return fValue; }
    void SetValue(double value);

    // Ends that are no finite numbers change nothing. The first end is left or at the bottom.
    const SValueRange& GetRange() const { return fRange; }
    void SetRange(const SValueRange& range);

    // Of arrow keys and the wheel, and of arrow keys with Shift and the page keys. 0 and below: one
    // position or a hundredth of the way, and ten of the minor ones.
    void SetIncrements(double minor, double major);
    double MinorIncrement() const;
    double MajorIncrement() const;

    const SSliderLook& GetLook() const { return fLook; }
    void SetLook(const SSliderLook& look);
    bool IsVertical() const;

    // The thumb's middle for a value.
    Point ThumbMiddle(double value) const;

    // For drags: how far a press lies from what it holds on to, 0 for one that moves it there; and
    // the value for a place of the mouse, that distance taken off.
    virtual Point GripOf(const Point& press) const;
    virtual double ValueAt(const Point& place) const;
    // The value a step away; above 0 is towards the last end.
    virtual double StepFrom(double value, double delta) const;

    // By the user: stores, draws and sends, when anything changes.
    void ChangeValue(double value, double startValue, std::uint32_t phase);
    // The end of a change: sends the value as it is.
    void SendFinal(double startValue);

    void DrawInContext(const CPaintEvent& event) override;
    void PrimaryClick(const CMouseEvent& event) override;
    bool MouseWheel(const CMouseEvent& event) override;
    bool HandleKey(CKeyboardMessage& message) override;

protected:
    // The value that the filled part of the groove begins at.
    virtual double FillOrigin() const { return fRange.first; }

private:
    Rect GrooveRect() const;
    void DrawGroove(CSystemPort& port) const;
    void DrawTick(CSystemPort& port, double value) const;
    void SendNumber(double oldValue, double startValue, std::uint32_t phase);

    SValueRange fRange;
    double fValue = 0.0;
    double fMinorIncrement = 0.0;
    double fMajorIncrement = 0.0;
    SSliderLook fLook;
};

} // namespace Kesto
