#include "controls/text/scrub_tracker.h"

#include "view/tree/context.h"
#include "view/tree/pane.h"

#include <cmath>

namespace Kesto {

CScrubTracker::CScrubTracker(CView& label, CObjID field, const CMouseEvent& press)
    : CNonPollingTracker(label, press), fField(field)
{
}

CScrubTarget* CScrubTracker::Target() const
{
    const CContext* const context = View() != nullptr ? View()->GetContext() : nullptr;
    return context != nullptr ? dynamic_cast<CScrubTarget*>(context->FindChild(fField, true))
                              : nullptr;
}

void CScrubTracker::Begin(const CMouseEvent& event)
{
    CScrubTarget* const target = Target();
    fIsOn = target != nullptr && target->Scrub(0.0, event, CScrubTarget::kPhase_ScrubBegin, true);
}

void CScrubTracker::MoveTo(const CMouseEvent& event)
{
    const Point& from = PressEvent().fPortPoint;
    const double way = event.fPortPoint.x - from.x + from.y - event.fPortPoint.y;
    const double steps = std::trunc(way / kUnitsPerStep);
    CScrubTarget* const target = fIsOn && steps != fSteps ? Target() : nullptr;
    if (target == nullptr)
        return;
    const double more = steps - fSteps;
    fSteps = steps;
    fIsOn = target->Scrub(more, event, CScrubTarget::kPhase_Scrub, false);
}

void CScrubTracker::End(const CMouseEvent& event)
{
    CScrubTarget* const target = fIsOn ? Target() : nullptr;
    if (target != nullptr)
        target->Scrub(0.0, event, CScrubTarget::kPhase_ScrubEnd, false);
}

void CScrubTracker::Abort()
{
    CScrubTarget* const target = fIsOn ? Target() : nullptr;
    if (target != nullptr)
        target->BreakOffScrub(PressEvent());
}

} // namespace Kesto
