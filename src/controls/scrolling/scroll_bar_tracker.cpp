#include "controls/scrolling/scroll_bar_tracker.h"

#include "view/tree/view_hold.h"

namespace Kesto {

namespace {

// Seconds from the press to the first repetition, and from one to the next.
constexpr double kFirstRepeat = 0.4;
constexpr double kNextRepeat = 0.05;

} // namespace

CScrollBarTracker::CScrollBarTracker(CScrollBar& bar, EScrollPart part, const CMouseEvent& press)
    : CNonPollingTracker(bar, press), fBar(bar), fPart(part),
      fPlace(bar.PortToLocal(press.fPortPoint)), fStartValue(bar.GetValue()),
      fGrip(bar.Along(fPlace) - bar.ThumbBegin()),
      fTimer(
          kFirstRepeat,
          [](void* tracker, double, double) { static_cast<CScrollBarTracker*>(tracker)->Repeat(); },
          this)
{
}

bool CScrollBarTracker::IsOverPart() const
{
    return fBar.PartAt(fPlace) == fPart;
}

// Whoever hears of the change may dispose of the bar, and this tracker with it.
void CScrollBarTracker::Begin(const CMouseEvent&)
{
    fBar.SetPressedPart(fPart);
    if (fPart == kScrollPart_Thumb)
        return;
    fTimer.Start();
    fBar.UsePart(fPart);
}

void CScrollBarTracker::Repeat()
{
    if (IsOver())
        return;
    const CViewHold hold(fBar);
    fTimer.SetPeriod(kNextRepeat);
    if (IsOverPart())
        fBar.UsePart(fPart);
}

void CScrollBarTracker::MoveTo(const CMouseEvent& event)
{
    fPlace = fBar.PortToLocal(event.fPortPoint);
    if (fPart == kScrollPart_Thumb)
        fBar.ScrollToValue(fBar.ValueOfThumb(fBar.Along(fPlace) - fGrip), fPart);
    else
        fBar.SetPressedPart(IsOverPart() ? fPart : kScrollPart_None);
}

void CScrollBarTracker::End(const CMouseEvent& event)
{
    fTimer.Stop();
    fBar.SetPressedPart(kScrollPart_None);
    if (fPart == kScrollPart_Thumb)
        MoveTo(event);
}

void CScrollBarTracker::Abort()
{
    fTimer.Stop();
    fBar.SetPressedPart(kScrollPart_None);
    fBar.ScrollToValue(fStartValue, fPart);
}

} // namespace Kesto
