#include "view/tree/view_tracker.h"

#include "view/tree/context.h"
#include "view/tree/view_hold.h"

namespace Kesto {

CViewTracker::CViewTracker(CView& view, const CMouseEvent& press, std::uint32_t options)
    : CTracker(press.fButton, options), fView(&view), fContext(view.GetContext()), fPress(press)
{
}

CViewTracker::~CViewTracker()
{
    if (!fIsOver)
        GoOver();
}

void CViewTracker::Start()
{
    const CViewHold hold(*fView);
    fContext->SetTracker(this);
    Begin(fPress);
}

// Lets go of the mouse.
void CViewTracker::GoOver()
{
    fIsOver = true;
    if (fContext->GetTracker() == this)
        fContext->SetTracker(nullptr);
    Finish();
}

bool CViewTracker::Track(const CMouseEvent& event)
{
    if (fIsOver)
        return true;
    const CViewHold hold(*fView);
    MoveTo(Placed(event));
    return true;
}

// The pump, which runs those that poll, knows of no ports.
CMouseEvent CViewTracker::Placed(CMouseEvent event) const
{
    if (IsRunning())
        event.fPortPoint =
            fContext->GlobalToLocal(Point{1.0 * event.fPoint.x, 1.0 * event.fPoint.y});
    return event;
}

void CViewTracker::Release(const CMouseEvent& event)
{
    if (fIsOver)
        return;
    const CViewHold hold(*fView);
    fEnd = Placed(event);
    GoOver();
    End(*fEnd);
}

void CViewTracker::BreakOff()
{
    if (fIsOver)
        return;
    const CViewHold hold(*fView);
    GoOver();
    Abort();
    fView = nullptr;
}

} // namespace Kesto
