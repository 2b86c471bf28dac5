// CButtonGraphic, the look of a button that draws itself, and the looks that layouts can name.
//
// The operations that draw are named by state and value, so that a look derived from another one
// changes just what differs. A graphic with a null owner serves to measure only.
#pragma once

#include "drawing/frames/button_state.h"
#include "drawing/frames/graphic.h"
#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"
#include "layout/vocabulary/button_options.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace Kesto {

class CView;

class CButtonGraphic : public CGraphic {
public:
    CButtonGraphic(CView* owner, EButtonStyle style, CText label);

    // What to draw, set before Draw. The mnemonic of the label is underlined with `cues`.
    // `tail` units at the frame's right end are no room for the label.
    void SetFrame(const Rect& frame, double tail = 0.0)
    {
        fFrame = frame;
        fTail = tail;
    }
    void SetState(EButtonState state, EButtonValue value) { fState = state, fValue = value; }
    void SetDefault(bool isDefault) { fIsDefault = isDefault; }
    void SetCues(bool cues, bool focused) { fCues = cues, fFocused = focused; }
    void SetFont(EFontKind font) { fFont = font; }
    void SetLabel(CText label) { fLabel = std::move(label); }
    const CText& GetLabel() const { return fLabel; }
    EButtonStyle GetStyle() const { return fStyle; }
    EButtonState GetState() const { return fState; }
    EButtonValue GetValue() const { return fValue; }
    bool IsDefault() const { return fIsDefault; }

    // The default ring with the normal body, or the operation of state and value.
    void Draw(CSystemPort& port) override;
    Rect GetFrame() const override { return fFrame; }

    // What the look takes from each side of the content; more in a default button, if the look says
    // so. In units, as all sizes here.
    virtual void GetInsets(Rect& insets) const;
    virtual Rect GetDefaultInsets() const;
    virtual double GetWidth() const;
    virtual double GetHeight() const;
    virtual double GetContentWidth() const;
    virtual double GetContentHeight() const;

    virtual void DrawDefaultRing(CSystemPort& port);
    // clang-format off
    virtual void DrawNormalOff(CSystemPort& port) { DrawLook(port, EButtonState::kNormal, kOff); }
    virtual void DrawNormalOn(CSystemPort& port) { DrawLook(port, EButtonState::kNormal, kOn); }
    virtual void DrawNormalNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kNormal, kNeutral); }
    virtual void DrawPressOff(CSystemPort& port) { DrawLook(port, EButtonState::kPress, kOff); }
    virtual void DrawPressOn(CSystemPort& port) { DrawLook(port, EButtonState::kPress, kOn); }
    virtual void DrawPressNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kPress, kNeutral); }
    virtual void DrawRolloverOff(CSystemPort& port) { DrawLook(port, EButtonState::kRollover, kOff); }
    virtual void DrawRolloverOn(CSystemPort& port) { DrawLook(port, EButtonState::kRollover, kOn); }
    virtual void DrawRolloverNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kRollover, kNeutral); }
    virtual void DrawDisabledOff(CSystemPort& port) { DrawLook(port, EButtonState::kDisabled, kOff); }
    virtual void DrawDisabledOn(CSystemPort& port) { DrawLook(port, EButtonState::kDisabled, kOn); }
    virtual void DrawDisabledNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kDisabled, kNeutral); }
    virtual void DrawInactiveOff(CSystemPort& port) { DrawLook(port, EButtonState::kInactive, kOff); }
    virtual void DrawInactiveOn(CSystemPort& port) { DrawLook(port, EButtonState::kInactive, kOn); }
    virtual void DrawInactiveNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kInactive, kNeutral); }
    virtual void DrawDisactiveOff(CSystemPort& port) { DrawLook(port, EButtonState::kDisactive, kOff); }
    virtual void DrawDisactiveOn(CSystemPort& port) { DrawLook(port, EButtonState::kDisactive, kOn); }
    virtual void DrawDisactiveNeutral(CSystemPort& port) { DrawLook(port, EButtonState::kDisactive, kNeutral); }
    // clang-format on

protected:
    // What the eighteen do in this look.
    virtual void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value);
    void DrawLabel(CSystemPort& port, EButtonState state, const Rect& frame);
    // The line of the focus, if the button has it, so many units within the frame.
    void DrawFocus(CSystemPort& port, double inset) const;

    CView* const fOwner;

private:
    const EButtonStyle fStyle;
    CText fLabel;
    EFontKind fFont = kFont_UIMedium;
    Rect fFrame;
    double fTail = 0.0;
    EButtonState fState = EButtonState::kNormal;
    EButtonValue fValue = kOff;
    bool fIsDefault = false;
    bool fCues = false;
    bool fFocused = false;
};

// The looks by class name. Those of the toolkit are there from the start; authors may add theirs.
class CButtonGraphics {
public:
    using Factory = std::function<std::unique_ptr<CButtonGraphic>(CView* owner, EButtonStyle style,
                                                                  const CText& label)>;

    CButtonGraphics();

    static CButtonGraphics& Get();

    // A name that is there already gets the new factory.
    void Register(std::string name, Factory factory);

    // Null for a name that nobody has registered: the button draws with the skin then.
    std::unique_ptr<CButtonGraphic> Make(std::string_view name, CView* owner, EButtonStyle style,
                                         const CText& label) const;

    // The class of a style's look; styles without one of their own have the default one.
    static std::string_view ClassOf(EButtonStyle style);

private:
    std::map<std::string, Factory, std::less<>> fFactories;
};

} // namespace Kesto
