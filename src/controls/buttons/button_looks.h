// The looks of buttons beside the default one.
#pragma once

#include "controls/buttons/button_graphic.h"

namespace Kesto {

template <class Look>
std::unique_ptr<CButtonGraphic> MakeLook(CView* owner, EButtonStyle style, const CText& label)
{
    return std::make_unique<Look>(owner, style, label);
}

// What they have in common: insets of their own, and no ring when they are the default.
class COwnButtonGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void GetInsets(Rect& insets) const override = 0;
    void DrawDefaultRing(CSystemPort& port) override
    {
        DrawLook(port, EButtonState::kNormal, GetValue());
    }
};

// A raised frame, sunken while it is pressed or on.
class CBevelButtonGraphic : public COwnButtonGraphic {
public:
    using COwnButtonGraphic::COwnButtonGraphic;
    void GetInsets(Rect& insets) const override { insets = {6, 4, 6, 4}; }

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// A triangle that points to the label while it is off, down while it is on, and between the two
// while it is neutral.
class CDisclosureButtonGraphic : public COwnButtonGraphic {
public:
    using COwnButtonGraphic::COwnButtonGraphic;
    void GetInsets(Rect& insets) const override { insets = {20, 2, 0, 2}; }

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// Flat until the mouse is over it.
class CToolButtonGraphic : public COwnButtonGraphic {
public:
    using COwnButtonGraphic::COwnButtonGraphic;
    void GetInsets(Rect& insets) const override; // more beside a label than around an icon

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

// Draws nothing: all that shows is what the owner draws.
class CEmptyButtonGraphic : public COwnButtonGraphic {
public:
    using COwnButtonGraphic::COwnButtonGraphic;
    void GetInsets(Rect& insets) const override { insets = {}; }

protected:
    void DrawLook(CSystemPort& port, EButtonState state, EButtonValue value) override;
};

} // namespace Kesto
