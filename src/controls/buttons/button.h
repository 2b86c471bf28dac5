// CButton, a button whose look is a CButtonGraphic.
#pragma once

#include "controls/buttons/button_graphic.h"
#include "controls/buttons/custom_button.h"

#include <memory>

namespace Kesto {

class CButton : public CCustomButton {
public:
    // Without a graphic it draws with the skin, as CCustomButton does.
    explicit CButton(const Rect& frame = {}, CObjID id = {},
                     std::uint32_t options = kView_NoOptions, std::uint32_t binding = kBind_Fixed,
                     EButtonKind kind = kPushButton, CText label = {}, bool isDefault = false,
                     std::unique_ptr<CButtonGraphic> graphic = nullptr);

    CButtonGraphic* GetGraphic() const { return fGraphic.get(); }
    void SetGraphic(std::unique_ptr<CButtonGraphic> graphic);

    // The graphic's size, or that of a push button with the label.
    virtual Point GetNaturalSize() const;

    void SetLabel(CText label) override;
    void SetFont(EFontKind font) override;
    void UIScaleChanged() override;
    void DrawInContext(const CPaintEvent& event) override;

protected:
    // Draws what lies on the graphic's body.
    virtual void DrawContent(CSystemPort&) {}
    // Units at the right end that are no part of the label's room.
    virtual double GetTailWidth() const { return 0.0; }

private:
    std::unique_ptr<CButtonGraphic> fGraphic;
    mutable Point fNaturalSize{-1.0, -1.0}; // below 0 until it is measured
};

} // namespace Kesto
