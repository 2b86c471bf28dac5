// CChildHolder, what a pane keeps its control of the platform in: the control is made when there is
// a window for it, lies where the pane says, and shows while nothing of its pane is hidden.
#pragma once

#include "platform/windows/child_control.h"

#include <functional>
#include <memory>

namespace Kesto {

class CPane;

class CChildHolder {
public:
    using Maker = std::function<std::unique_ptr<Platform::ChildControl>(Platform::NativeWindow)>;

    // Null while there is none; the pane is off the screen, or the system refused.
    Platform::ChildControl* Get() const { return fControl.get(); }

    // The window that the control was in has been destroyed, and the control with it.
    bool IsLost() const { return fControl != nullptr && fControl->Handle() == nullptr; }
    bool IsShown() const { return fIsShown; }

    // Makes the control if there can be one now, places it in pixels of the window, and shows or
    // hides it. If its pane has the focus, the keyboard comes to a control that is shown. What the
    // maker throws is passed on, once: it isn't asked again before Drop, since a pane is fitted on
    // the way out too.
    void Fit(const CPane& pane, const Maker& make, const Platform::PixelRect& pixels, bool shown);
    void Drop();

private:
    std::unique_ptr<Platform::ChildControl> fControl;
    bool fIsShown = false;
    bool fIsRefused = false;
};

} // namespace Kesto
