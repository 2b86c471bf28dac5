// Buttons with a picture of the icon store: CIconButton, CIconButtonDropDown with an arrow that
// opens a menu, and CToolButton.
#pragma once

#include "controls/buttons/button.h"
#include "images/pictures/picture_states.h"

#include <functional>

namespace Kesto {

class CIconButton : public CButton {
public:
    using CButton::CButton;

    // A name of the store. A picture that isn't there leaves the place empty.
    const CText& GetIcon() const { return fIcon; }
    void SetIcon(CText icon);
    // Moves the picture from the middle of the button, in units.
    void SetIconOffset(const Point& offset);

    // The picture with what the graphic takes around it, and the label beside it.
    Point GetNaturalSize() const override;

protected:
    void DrawContent(CSystemPort& port) override;

    // Where the picture goes.
    virtual Rect GetIconRect() const;

private:
    const CDualPicture& PictureNow() const;

    CText fIcon;
    Point fIconOffset;
    mutable CPictureStates fPictures;
    mutable std::uint32_t fGeneration = 0; // of the tools that the pictures are of
};

// A click on the arrow at the right end opens a menu, one elsewhere is a click.
class CIconButtonDropDown : public CIconButton {
public:
    // Opens the menu with its top left corner at a point of the screen, in pixels. Set by whoever
    // has the menu; without it the arrow does what the rest does.
    using MenuOpener = std::function<void(CIconButtonDropDown&, const PixelPoint& corner)>;

    using CIconButton::CIconButton;

    static constexpr double kArrowWidth = 14.0;

    void SetMenuOpener(MenuOpener opener) { fOpenMenu = std::move(opener); }
    Rect GetArrowRect() const;
    Point GetNaturalSize() const override;
    void PrimaryClick(const CMouseEvent& event) override;

protected:
    void DrawContent(CSystemPort& port) override;
    Rect GetIconRect() const override;
    double GetTailWidth() const override { return kArrowWidth; }

private:
    MenuOpener fOpenMenu;
};

// A button of a tool bar: flat, and a stop for the Tab key only where the layout says so.
class CToolButton : public CIconButton {
public:
    using CIconButton::CIconButton;
};

} // namespace Kesto
