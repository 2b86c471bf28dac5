// CScrollBarTracker, a press on a scroll bar: a drag of the thumb, or a button or the track, which
// go on while they are held. Broken off, the bar goes back to where it was.
#pragma once

#include "controls/scrolling/scroll_bar.h"
#include "view/process/timer.h"
#include "view/tree/view_tracker.h"

namespace Kesto {

class CScrollBarTracker : public CNonPollingTracker {
public:
    CScrollBarTracker(CScrollBar& bar, EScrollPart part, const CMouseEvent& press);

    void Begin(const CMouseEvent& event) override;
    void MoveTo(const CMouseEvent& event) override;
    void End(const CMouseEvent& event) override;
    void Abort() override;

private:
    bool IsOverPart() const;
    void Repeat();

    CScrollBar& fBar; // the view of the tracker
    EScrollPart fPart;
    Point fPlace; // of the mouse, in the bar
    double fStartValue;
    double fGrip; // from the thumb's beginning to the mouse, along the bar
    CTimer fTimer;
};

} // namespace Kesto
