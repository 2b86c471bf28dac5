// The looks of buttons beside the default one.
#pragma once

#include "controls/buttons/button_graphic.h"

namespace Kesto {

template <class Look>
std::unique_ptr<CButtonGraphic> MakeLook(CView* owner, EButtonStyle style, const CText& label)
{
    return std::make_unique<Look>(owner, style, label);
}

// A raised frame, sunken while it is pressed or on.
class CBevelButtonGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void GetInsets(Rect& insets) const override;
    void DrawDefaultRing(CSystemPort& port) override;

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// A triangle that points to the label while it is off, down while it is on, and between the two
// while it is neutral.
class CDisclosureButtonGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void GetInsets(Rect& insets) const override;
    void DrawDefaultRing(CSystemPort& port) override;

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// Flat until the mouse is over it.
class CToolButtonGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void GetInsets(Rect& insets) const override;
    void DrawDefaultRing(CSystemPort& port) override;

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// Nothing: only what the owner draws is seen.
class CEmptyButtonGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void GetInsets(Rect& insets) const override;
    void DrawDefaultRing(CSystemPort& port) override;

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

} // namespace Kesto
