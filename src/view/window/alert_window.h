// CMessageAlert, a message with a sign and buttons, that is run until one is pressed.
//
// Return presses the default button and Escape the one that commits to nothing; without such a one
// the alert can't be closed but by a button. Control and C copy the texts.
#pragma once

#include "foundation/alerts/alert.h"
#include "view/window/window_kinds.h"

#include <string>

namespace Kesto {

class CAlertButton;

class CMessageAlert : public CAlert {
public:
    CMessageAlert(CExecutable* super, const AlertBox& box);

    // Runs it, and tells which button was pressed. When the run ends without one it is the cancel
    // button, or else the last one.
    AlertButton Ask();

    void CreateViews() override;
    void AfterShow() override;
    bool HandleCommand(CCommandMessage& message) override;
    bool HandleKey(CKeyboardMessage& message) override;

    // Title, message and explanation, with blank lines between them.
    std::string CopyText() const;

private:
    void MakeButtons();
    Point MeasureText();

    AlertBox fBox;
    CAlertButton* fFirst = nullptr; // that Return presses; a child
};

} // namespace Kesto
