// CComboBox, a popup with a field: an item is chosen from the menu, or a text of one's own typed,
// where the box can be edited.
//
// Choices are sent as CMenuPopup sends them; what is typed as a CValueMessage with the phase of the
// field, to be read by GetShownText. A text that is an item's counts as that item.
#pragma once

#include "controls/fields/edit_string.h"
#include "controls/popups/menu_popup.h"
#include "layout/vocabulary/list_options.h"

namespace Kesto {

class CComboBox : public CMenuPopup {
public:
    using CMenuPopup::CMenuPopup;

    // The field is a child, which takes the focus for the box; null in a box that isn't editable.
    CEditString* Field() const { return fField; }
    void SetEditable(bool on);

    void SetText(const CText& text);

    void SetItems(std::vector<SPopupItem> items) override;
    void SetChosen(unsigned item) override;
    CText GetShownText() const override;

    // Draws ground and frame of the whole, for the parts that lie on it.
    void DrawBox(CSystemPort& port) const;

    // A key of the field, before it uses that: true eats it.
    bool TakeFieldKey(const CKeyboardMessage& message) { return UseKey(message); }

    bool HandleValue(CValueMessage& message) override;
    void PrimaryClick(const CMouseEvent& event) override;
    void DidResize() override;
    void UpdateChain() override;
    void DrawInContext(const CPaintEvent& event) override;

private:
    unsigned ItemOf(const CText& text) const;
    void PlaceField();

    CEditString* fField = nullptr; // a child
};

template <>
class CPaneBuilder<CComboBox> : public CPaneBuilder<CMenuPopup> {
public:
    using CPaneBuilder<CMenuPopup>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
