#include "controls/base/control_pane.h"

#include "view/tree/view_hold.h"

namespace Kesto {

void CControlPane::DidBecomeBullseye()
{
    const CViewHold hold(*this);
    CPane::DidBecomeBullseye();
    if (!hold.IsOver())
        InvalidateAll();
}

void CControlPane::DidLoseBullseye()
{
    const CViewHold hold(*this);
    CPane::DidLoseBullseye();
    if (!hold.IsOver())
        InvalidateAll();
}

} // namespace Kesto
