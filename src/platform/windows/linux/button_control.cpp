#include "platform/windows/button_control.h"

#include "platform/input/keyboard.h"
#include "platform/input/message_numbers.h"
#include "platform/system/errors.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/child_window.h"
#include "platform/windows/linux/display.h"

#include <cerrno>

namespace Platform {
namespace {

using namespace Number;

class PlainButton final : public ButtonControl, private ChildWindow {
public:
    PlainButton(LinuxWindow& parent, ButtonHandler& handler)
        : ChildWindow(parent, handler), fHandler(handler)
    {
    }

    NativeWindow Handle() const override { return ChildHandle(); }
    void Place(const PixelRect& rect) override { PlaceChild(rect); }
    void SetShown(bool shown) override { ShowChild(shown); }
    void SetControlEnabled(bool enabled) override { EnableChild(enabled); }
    void SetName(std::string_view name) override { fTitle = name; }
    void Redraw() override
    {
        if (IsVisible())
            InvalidateAll();
    }

private:
    // Pressed by the mouse it looks so while the mouse is over it; by the space bar until it is
    // let go.
    std::intptr_t Act(const WindowMessage& message) override
    {
        const bool isSpace = message.first == std::uintptr_t(Key::kSpace);
        switch (message.number) {
        case kLeftDown:
            MakeFocused(ChildHandle());
            SetCaptor(this);
            SetPressed(true);
            return 0;
        case kMouseMove:
            if (Captor() == this)
                SetPressed(Contains(Local(), message.Point()));
            return 0;
        case kLeftUp:
            if (Captor() == this)
                SetCaptor(nullptr);
            Release();
            return 0;
        case kKeyDown:
            if (isSpace)
                SetPressed(true);
            return 0;
        case kKeyUp:
            if (isSpace)
                Release();
            return 0;
        case kKillFocus:
            SetPressed(false);
            return 0;
        case kSetCursor:
            Display::Get().ShowCursor(*this, fCursor);
            return 1;
        default:
            return 0;
        }
    }

    void SetPressed(bool pressed)
    {
        if (std::exchange(fIsPressed, pressed) != pressed)
            Redraw();
    }

    void Release()
    {
        const bool clicked = fIsPressed;
        SetPressed(false);
        if (clicked)
            fHandler.Clicked();
    }

    void Draw(const Bitmap& picture) override
    {
        const PixelRect local = Local();
        fHandler.DrawButton({{local.right, local.bottom}, fIsPressed, HasKeyboard(), IsUsable()},
                            picture);
    }

    ButtonHandler& fHandler;
    bool fIsPressed = false;
};

} // namespace

std::unique_ptr<ButtonControl> MakeButtonControl(NativeWindow window, ButtonHandler& handler)
{
    if (LinuxWindow* const parent = LinuxWindow::From(window))
        return std::make_unique<PlainButton>(*parent, handler);
    SetLastError(EINVAL);
    return nullptr;
}

} // namespace Platform
