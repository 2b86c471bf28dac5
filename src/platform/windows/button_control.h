// A button of the system that draws nothing by itself.
//
// It knows pressed and released, takes the keyboard, and is what programs that read the screen to
// the blind look for. What it shows, its handler presents.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/windows/child_control.h"

#include <memory>
#include <string_view>

namespace Platform {

struct ButtonState {
    PixelPoint size; // in pixels
    bool pressed = false;
    bool focused = false;
    bool enabled = true;
};

class ButtonHandler : public ChildHandler {
public:
    // Draws the button into a bitmap of its size, all of it.
    virtual void DrawButton(const ButtonState& state, const Bitmap& bitmap) = 0;

    // It was clicked, by mouse or keyboard. A double click is a click.
    virtual void Clicked() = 0;

protected:
    ~ButtonHandler() = default;
};

class ButtonControl : public ChildControl {
public:
    // What the button is called; it isn't drawn.
    virtual void SetName(std::string_view name) = 0;

    // Has it drawn again.
    virtual void Redraw() = 0;
};

// Makes a button in a window, hidden. Null, with the system's code in LastError, if the system
// refuses. The handler must outlive it.
std::unique_ptr<ButtonControl> MakeButtonControl(NativeWindow window, ButtonHandler& handler);

} // namespace Platform
