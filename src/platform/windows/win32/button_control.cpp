#include "platform/windows/button_control.h"

#include "platform/system/win32/wide.h"
#include "platform/windows/win32/child_notices.h"
#include "platform/windows/win32/device.h"

namespace Platform {
namespace {

class SystemButton final : public ButtonControl, private SystemChild {
public:
    SystemButton(NativeWindow window, ButtonHandler& handler)
        : SystemChild(handler, window, L"BUTTON", BS_OWNERDRAW), fHandler(handler)
    {
    }

    using SystemChild::Refusal;
    NativeWindow Handle() const override { return Window(Child()); }
    void Place(const PixelRect& rect) override { PlaceChild(rect); }
    void SetShown(bool shown) override { ShowChild(shown); }
    void SetControlEnabled(bool enabled) override { EnableChild(enabled); }
    void SetName(std::string_view name) override { SetWindowTextW(Child(), ToWide(name).c_str()); }
    void Redraw() override
    {
        if (Child() != nullptr)
            InvalidateRect(Child(), nullptr, FALSE);
    }

private:
    void Notice(WORD code) override
    {
        if (code == BN_CLICKED || code == BN_DOUBLECLICKED)
            fHandler.Clicked();
    }

    void Draw(const DRAWITEMSTRUCT& item) override
    {
        const ButtonState state{{item.rcItem.right, item.rcItem.bottom},
                                (item.itemState & ODS_SELECTED) != 0,
                                (item.itemState & ODS_FOCUS) != 0,
                                (item.itemState & ODS_DISABLED) == 0};
        Bitmap bitmap;
        if (!bitmap.Make(state.size.x, state.size.y, 32, false))
            return;
        fHandler.DrawButton(state, bitmap);
        BitBlt(item.hDC, 0, 0, state.size.x, state.size.y, MemoryDevice(bitmap).Get(), 0, 0,
               SRCCOPY);
    }

    ButtonHandler& fHandler;
};

} // namespace

std::unique_ptr<ButtonControl> MakeButtonControl(NativeWindow window, ButtonHandler& handler)
{
    return IfNotRefused(std::make_unique<SystemButton>(window, handler));
}

} // namespace Platform
