// Radio buttons that are children of one view form a group.
#pragma once

#include "controls/buttons/button_control.h"

namespace Kesto {

class CView;

// A parent that wants to decide by itself what a click on one of its radio buttons does.
class CRadioDecider {
public:
    // True: it has been decided, and the group is left as it is.
    virtual bool DecideRadio(CButtonControl& clicked) = 0;

protected:
    ~CRadioDecider() = default;
};

// What a click on a radio button does to its group: turns it on and its siblings off, unless the
// parent decides.
void TurnRadioOn(CView& radio);

// The radio button that an arrow key leads to from another one, round the ends, among those that
// can be clicked; null if there is none.
CView* NextRadio(CView& radio, bool forward);

} // namespace Kesto
