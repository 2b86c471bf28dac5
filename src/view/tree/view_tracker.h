// CViewTracker and CNonPollingTracker, which follow the mouse for a view from a press to the end.
//
// Both see the press first, so a press whose release is already waiting is a whole click. One that
// polls has the pump to itself while it runs (CTracker::Run); one that doesn't is kept by the
// context and follows the events that come through it, so the caller goes on at once.
//
// While one is at work its context has the mouse, keys reach no view, and Escape breaks it off.
#pragma once

#include "view/process/tracker.h"
#include "view/tree/view.h"

#include <optional>

namespace Kesto {

class CViewTracker : public CTracker {
public:
    // The view must have a context.
    CViewTracker(CView& view, const CMouseEvent& press, std::uint32_t options = 0);
    ~CViewTracker() override;

    // Null once the tracking is over because the view is destroyed.
    CView* View() const { return fView; }
    const CMouseEvent& PressEvent() const { return fPress; }
    // The release; nothing while the button is down, and when the tracking was broken off.
    const std::optional<CMouseEvent>& EndEvent() const { return fEnd; }
    bool IsOver() const { return fIsOver; }

    // Hooks: the press, then moves, then one of the two ends: the release, or breaking off, which
    // puts back what the moves have changed.
    virtual void Begin(const CMouseEvent&) {}
    virtual void MoveTo(const CMouseEvent&) {}
    virtual void End(const CMouseEvent&) {}
    virtual void Abort() {}
    // Draws over the tree after each paint; the port's origin is the context's zero.
    virtual void DrawFeedback(CSystemPort&) {}
    // The system has given the mouse to somebody else.
    virtual void CaptureLost() { BreakOff(); }

    // The steps that call them. Once it is over nothing more is called.
    void Start();
    bool Track(const CMouseEvent& event) override;
    void Release(const CMouseEvent& event) override;
    void BreakOff();

private:
    void GoOver();
    CMouseEvent Placed(CMouseEvent event) const;

    CView* fView;
    CContext* fContext;
    CMouseEvent fPress;
    std::optional<CMouseEvent> fEnd;
    bool fIsOver = false;
};

// The kind that the context drives.
class CNonPollingTracker : public CViewTracker {
public:
    using CViewTracker::CViewTracker;
};

} // namespace Kesto
