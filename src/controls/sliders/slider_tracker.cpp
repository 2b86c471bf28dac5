#include "controls/sliders/slider_tracker.h"

namespace Kesto {

CSliderTracker::CSliderTracker(CCustomSlider& slider, const CMouseEvent& press)
    : CNonPollingTracker(slider, press), fSlider(slider), fStartValue(slider.GetValue()),
      fGrip(slider.GripOf(slider.PortToLocal(press.fPortPoint)))
{
}

// A press beside the thumb brings it there; one on the thumb moves nothing.
void CSliderTracker::Begin(const CMouseEvent& event)
{
    fSlider.SetPressed(true);
    if (fGrip == Point{})
        MoveTo(event);
}

// The mouse is told of again while it rests. Whoever rounds the values would have the same one
// changed each time.
void CSliderTracker::MoveTo(const CMouseEvent& event)
{
    if (fLast == event.fPortPoint)
        return;
    fLast = event.fPortPoint;
    const Point place = fSlider.PortToLocal(event.fPortPoint);
    const double before = fSlider.GetValue();
    const double value = fSlider.ValueAt({place.x - fGrip.x, place.y - fGrip.y});
    fHasMoved = fHasMoved || value != before;
    fSlider.ChangeValue(value, fStartValue, CValueMessage::kPhase_Passing);
}

void CSliderTracker::End(const CMouseEvent&)
{
    fSlider.SetPressed(false);
    if (fHasMoved)
        fSlider.SendFinal(fStartValue);
}

void CSliderTracker::Abort()
{
    fSlider.SetPressed(false);
    fSlider.ChangeValue(fStartValue, fStartValue, CValueMessage::kPhase_Passing);
}

} // namespace Kesto
