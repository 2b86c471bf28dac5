// CControlPane, a pane whose picture shows whether it is active, usable and has the keyboard: a
// change of any of these draws it anew.
#pragma once

#include "view/tree/pane.h"

namespace Kesto {

class CControlPane : public CPane {
public:
    using CPane::CPane;

    void DidActivate() override { InvalidateAll(); }
    void DidDeactivate() override { InvalidateAll(); }
    void DidEnable() override { InvalidateAll(); }
    void DidDisable() override { InvalidateAll(); }
    void DidBecomeBullseye() override;
    void DidLoseBullseye() override;
};

} // namespace Kesto
