// CSliderTracker, a drag of a slider's value: passing values while the mouse is down, one final one
// at the release. Broken off, the value is what it was.
#pragma once

#include "controls/sliders/custom_slider.h"
#include "view/tree/view_tracker.h"

#include <optional>

namespace Kesto {

class CSliderTracker : public CNonPollingTracker {
public:
    CSliderTracker(CCustomSlider& slider, const CMouseEvent& press);

    void Begin(const CMouseEvent& event) override;
    void MoveTo(const CMouseEvent& event) override;
    void End(const CMouseEvent& event) override;
    void Abort() override;

private:
    CCustomSlider& fSlider; // the view of the tracker
    double fStartValue;
    Point fGrip;
    std::optional<Point> fLast; // where the mouse was last
    bool fHasMoved = false;     // a passing value has been sent
};

} // namespace Kesto
