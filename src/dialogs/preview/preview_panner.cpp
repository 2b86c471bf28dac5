#include "dialogs/preview/preview_panner.h"

#include "dialogs/preview/preview_pane.h"

namespace Kesto {

using Project::PPreviewPane;

CPreviewPanner::CPreviewPanner(PPreviewPane& pane, const CMouseEvent& press)
    : CNonPollingTracker(pane, press), fStart(pane.GetImageOrigin())
{
}

PPreviewPane* CPreviewPanner::Pane() const
{
    return static_cast<PPreviewPane*>(View());
}

void CPreviewPanner::Begin(const CMouseEvent&)
{
    Pane()->BeginDrag();
}

void CPreviewPanner::MoveTo(const CMouseEvent& event)
{
    const Point& press = PressEvent().fPortPoint;
    Pane()->ScrollTo(
        {fStart.x + press.x - event.fPortPoint.x, fStart.y + press.y - event.fPortPoint.y});
}

void CPreviewPanner::End(const CMouseEvent&)
{
    Pane()->EndDrag();
}

void CPreviewPanner::Abort()
{
    if (PPreviewPane* const pane = Pane()) {
        pane->ScrollTo(fStart);
        pane->EndDrag();
    }
}

} // namespace Kesto
