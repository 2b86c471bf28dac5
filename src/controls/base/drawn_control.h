// CDrawnControl, a control that draws itself by how it is used: with the mouse over it, pressed,
// disabled, in an inactive window, with the focus. A change of any of these draws it anew.
#pragma once

#include "controls/base/control_pane.h"
#include "drawing/frames/button_state.h"
#include "view/messages/message.h"

namespace Kesto {

class CDrawnControl : public CControlPane {
public:
    using CControlPane::CControlPane;

    EButtonState GetDrawState() const;
    bool IsPressed() const { return fPressed; }
    void SetPressed(bool pressed);

    // Whether the ring of the focus is to be drawn: not in a window that isn't active.
    bool ShowsFocus() const { return IsBullseye() && IsUsable() && IsActive(); }

    void MouseEnter(const CMouseEvent& event) override;
    void MouseExit() override;
    bool PrimaryMultiClick(const CMouseEvent& event, int count) override; // each press counts
    void DidResize() override { InvalidateAll(); }

protected:
    bool IsHovered() const { return fHovered; }

private:
    bool fHovered = false;
    bool fPressed = false;
};

// Whether a message is the press of a key without Control and Alt: the only ones that controls
// take.
bool IsPlainKeyDown(const CKeyboardMessage& message);

} // namespace Kesto
