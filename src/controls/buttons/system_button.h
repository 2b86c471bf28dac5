// CSystemButton and its three kinds: the buttons of dialogs, which look and work alike on every
// system.
//
// In a window each lies under a button of the platform, which is what programs that read the screen
// know, and which has the keyboard. The platform's button shows what the pane has drawn, and hands
// keys and the mouse to the pane: value and look are the pane's.
#pragma once

#include "controls/base/child_holder.h"
#include "controls/buttons/button.h"
#include "platform/windows/button_control.h"

namespace Kesto {

class CSystemButton : public CButton, private Platform::ButtonHandler {
public:
    using CButton::CButton;
    ~CSystemButton() override;

    using CButton::Clicked;

    Platform::NativeWindow GetFocusWindow() override;
    void SetLabel(CText label) override;
    void SetButtonState(EButtonValue value, std::uint32_t track, bool redraw) override;

    void UpdateContext(CContext* context) override;
    void PortOffset() override { FitControl(); }
    void DidResize() override;
    void DidShow() override { FitControl(); }
    void DidHide() override { FitControl(); }
    void UIScaleChanged() override;
    void DidEnable() override;
    void DidDisable() override;
    void DrawInContext(const CPaintEvent& event) override;

private:
    bool Intercept(const Platform::WindowMessage& message) override;
    void ChildFocused(bool focused) override;
    void DrawButton(const Platform::ButtonState& state, const Platform::Bitmap& bitmap) override;
    void Clicked() override;

    Platform::ButtonControl* Control() const;
    void FitControl();

    CChildHolder fHolder;
};

class CPushButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

class CCheckButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

class CRadioButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

} // namespace Kesto
