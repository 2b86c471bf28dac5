// CScrubTracker, a drag on a label that changes the number of a field.
//
// To the right and up is more: a step for every two units. The field is looked up by its id at each
// event, so it may come and go. Escape puts the value back.
#pragma once

#include "controls/base/scrub_target.h"
#include "view/tree/view_tracker.h"

namespace Kesto {

class CScrubTracker : public CNonPollingTracker {
public:
    static constexpr double kUnitsPerStep = 2.0;

    CScrubTracker(CView& label, CObjID field, const CMouseEvent& press);

    void Begin(const CMouseEvent& event) override;
    void MoveTo(const CMouseEvent& event) override;
    void End(const CMouseEvent& event) override;
    void Abort() override;

private:
    CScrubTarget* Target() const; // null while there is none

    CObjID fField;
    double fSteps = 0.0; // that have been taken
    bool fIsOn = false;
};

} // namespace Kesto
