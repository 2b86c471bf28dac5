// CWindowButton, what a window knows of the buttons that Return and Escape press.
#pragma once

namespace Kesto {

class CPane;

// A button registers with its window while it is in one (CWindow::AddButton).
class CWindowButton {
public:
    virtual bool IsDefault() const = 0;
    virtual bool IsCancel() const = 0;

    // Asks whoever has the focus as a click does, shows the button pressed for a moment and clicks
    // it. False: it was refused, or the button is gone.
    virtual bool Flash() = 0;

    virtual const CPane& ButtonPane() const = 0;

protected:
    ~CWindowButton() = default;
};

} // namespace Kesto
