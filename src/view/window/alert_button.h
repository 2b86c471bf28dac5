// CAlertButton, the push button of alerts. Those of layouts are a layer above.
#pragma once

#include "drawing/frames/button_state.h"
#include "foundation/base/text.h"
#include "view/tree/pane.h"
#include "view/window/window_button.h"

namespace Kesto {

class CAlertButton : public CPane, public CWindowButton {
public:
    CAlertButton(const Rect& frame, CObjID id, CText label, bool isDefault, bool isCancel);
    ~CAlertButton() override;

    // Space and a click press it: it sends a command with its id.
    bool Flash() override;
    bool IsDefault() const override { return fIsDefault; }
    bool IsCancel() const override { return fIsCancel; }
    const CPane& ButtonPane() const override { return *this; }

    void UpdateContext(CContext* context) override; // joins its window's buttons

    void DrawInContext(const CPaintEvent& event) override;
    void MouseEnter(const CMouseEvent&) override { InvalidateAll(); }
    void MouseExit() override { InvalidateAll(); }
    void PrimaryClick(const CMouseEvent& event) override;
    void PrimaryUp(const CMouseEvent& event) override;
    bool HandleKey(CKeyboardMessage& message) override;
    void DidBecomeBullseye() override;
    void DidLoseBullseye() override;

private:
    EButtonState StateNow() const;
    void SetPressed(bool on);

    CText fLabel;
    bool fIsDefault;
    bool fIsCancel;
    bool fIsPressed = false;
};

} // namespace Kesto
