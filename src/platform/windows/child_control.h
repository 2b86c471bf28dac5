// The two controls that the system supplies as children of a window: fields and buttons.
//
// A child lies on top of what its window presents. Keys and presses of the mouse go to its handler
// first. Rectangles are pixels of the window's content. The window must outlive the control; if it
// is ended first, the control is one without a window, which keeps its text and shows nothing.
#pragma once

#include "platform/windows/window_procedure.h"

namespace Platform {

class ChildHandler {
public:
    // A key, character, press or release of the mouse comes to the control, points being its own.
    // True eats it.
    virtual bool Intercept(const WindowMessage& message) = 0;

    // The control got the keyboard, or lost it.
    virtual void ChildFocused(bool focused) = 0;

protected:
    ~ChildHandler() = default;
};

class ChildControl {
public:
    virtual ~ChildControl() = default;

    // Null when the window is closed.
    virtual NativeWindow Handle() const = 0;

    virtual void Place(const PixelRect& rect) = 0;
    virtual void SetShown(bool shown) = 0;
    virtual void SetControlEnabled(bool enabled) = 0;
};

} // namespace Platform
