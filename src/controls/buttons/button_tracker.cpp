#include "controls/buttons/button_tracker.h"

#include "controls/buttons/custom_button.h"

namespace Kesto {

CButtonTracker::CButtonTracker(CCustomButton& button, const CMouseEvent& press)
    : CNonPollingTracker(button, press), fButton(button)
{
}

bool CButtonTracker::IsOver(const CMouseEvent& event) const
{
    return fButton.HitRegion(fButton.PortToLocal(event.fPortPoint));
}

// The hooks run while the view lives; painting may end it.
void CButtonTracker::ShowPressed(bool pressed)
{
    fButton.SetPressed(pressed);
}

void CButtonTracker::Begin(const CMouseEvent&)
{
    ShowPressed(true);
}

void CButtonTracker::MoveTo(const CMouseEvent& event)
{
    ShowPressed(IsOver(event));
}

void CButtonTracker::End(const CMouseEvent& event)
{
    const bool clicked = IsOver(event);
    ShowPressed(false);
    if (clicked && View() != nullptr)
        fButton.Clicked(event.fTime, event.fModifiers);
}

void CButtonTracker::Abort()
{
    ShowPressed(false);
}

} // namespace Kesto
