// CCustomButton, a button that draws itself.
//
// A click is a press and a release over the button: the mouse may leave in between and come back.
// What a click does is decided by the kind: a push button sends a command; a check button turns on,
// or off if it was on, and sends its value; a radio button turns on, its sibling radio buttons off,
// and sends a command. Space clicks the button that has the focus; arrows go from one radio button
// to the next.
//
// This class draws with the widget skin; CButton and those after it have a look of their own.
#pragma once

#include "controls/base/control_pane.h"
#include "controls/buttons/button_control.h"
#include "drawing/frames/button_state.h"
#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"

namespace Kesto {

class CCustomButton : public CControlPane, public CButtonControl {
public:
    explicit CCustomButton(const Rect& frame = {}, CObjID id = {},
                           std::uint32_t options = kView_NoOptions,
                           std::uint32_t binding = kBind_Fixed, EButtonKind kind = kPushButton,
                           CText label = {}, bool isDefault = false);

    ~CCustomButton() override;

    void SetButtonID(CObjID id) override { SetID(id); }
    CObjID GetButtonID() const override { return GetID(); }
    bool Flash() override;
    bool IsDefault() const override { return fIsDefault; }
    bool IsCancel() const override { return fIsCancel; }
    const CPane& ButtonPane() const override { return *this; }
    bool IsRadio() const override { return fKind == kRadioButton; }
    void SetValue(EButtonValue value) override;

    EButtonKind GetKind() const { return fKind; }
    void SetKind(EButtonKind kind) { fKind = kind; }
    const CText& GetLabel() const { return fLabel; }
    virtual void SetLabel(CText label);
    EFontKind GetFont() const { return fFont; }
    virtual void SetFont(EFontKind font);
    void SetDefault(bool isDefault) { fIsDefault = isDefault; }
    void SetCancel(bool isCancel) { fIsCancel = isCancel; }

    // Does what a click does, with the time and modifiers of the event that it came from.
    virtual void Clicked(double time, std::uint32_t modifiers);

    virtual EButtonState GetDrawState() const;

    // Stores the value and the bits of fTrack for pressed and hot; draws at once what that changes.
    virtual void SetButtonState(EButtonValue value, std::uint32_t track, bool redraw);
    void SetPressed(bool pressed);

    virtual void DrawLabel(CSystemPort& port, const Rect& rect);

    // Where a press counts, in the view's space.
    virtual void GetHotRect(Rect& rect) const;
    virtual bool HitRegion(const Point& local) const;

    // Registers with the window that it comes into.
    void UpdateContext(CContext* context) override;

    void DrawInContext(const CPaintEvent& event) override;
    void MouseEnter(const CMouseEvent& event) override;
    void MouseExit() override;
    void PrimaryClick(const CMouseEvent& event) override;
    bool PrimaryMultiClick(const CMouseEvent& event, int count) override;
    bool HandleKey(CKeyboardMessage& message) override;
    void OnBullseyeEnable() override;
    void OnBullseyeDisable() override;

protected:
    bool IsPressed() const { return (fTrack & kTrack_Pressed) != 0; }

    // The key's letter is underlined while the window shows keyboard cues.
    bool ShowsCues() const;

private:
    void ListenForMnemonic();
    void SendCommandNow(double time, std::uint32_t modifiers);
    bool MayTakeClick();

    EButtonKind fKind;
    CText fLabel;
    EFontKind fFont = kFont_UIMedium;
    bool fIsDefault;
    bool fIsCancel = false;
};

} // namespace Kesto
