// CButtonTracker, a press on a button: pressed while the mouse is over it, clicked by a release
// there.
#pragma once

#include "view/tree/view_tracker.h"

namespace Kesto {

class CCustomButton;

class CButtonTracker : public CNonPollingTracker {
public:
    CButtonTracker(CCustomButton& button, const CMouseEvent& press);

    void Begin(const CMouseEvent& event) override;
    void MoveTo(const CMouseEvent& event) override;
    void End(const CMouseEvent& event) override;
    void Abort() override;

private:
    bool IsOver(const CMouseEvent& event) const;
    void ShowPressed(bool pressed);

    CCustomButton& fButton; // the view of the tracker
};

} // namespace Kesto
