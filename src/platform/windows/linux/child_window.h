// What the child controls of Linux have in common: a place within a window, a picture of their own,
// and a handler that sees keys and presses first.
#pragma once

#include "platform/windows/child_control.h"
#include "platform/windows/linux/window.h"

namespace Platform {

class ChildWindow : public LinuxWindow {
public:
    ChildWindow(LinuxWindow& parent, ChildHandler& handler);
    ~ChildWindow() override;

    // Null when the parent is closed.
    NativeWindow ChildHandle() const
    {
        return fParent != nullptr ? const_cast<ChildWindow*>(this)->Handle() : nullptr;
    }

    void PlaceChild(const PixelRect& rect);
    void ShowChild(bool shown);
    void EnableChild(bool enabled);
    bool HasKeyboard();

protected:
    // A message that the handler has let through.
    virtual std::intptr_t Act(const WindowMessage& message) = 0;

    // Draws all of the control, which has the picture's size.
    virtual void Draw(const Bitmap& picture) = 0;

    void Redraw() { InvalidateAll(); }

private:
    std::intptr_t Answer(const WindowMessage& message) override;
    void Paint();

    ChildHandler& fHandler;
};

} // namespace Platform
