// CMenuPopup, a button that shows the chosen one of several items and opens a menu of them.
//
// A choice of the user is sent as a CValMsg<unsigned> of numbers of items, counted from 0 with the
// separators, phase 1. A popup without an id is silent.
#pragma once

#include "controls/base/drawn_control.h"
#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"
#include "layout/build/pane_builder.h"

#include <vector>

namespace Kesto {

struct SPopupItem {
    CText label;
    bool enabled = true;
    bool separator = false;

    bool CanBeChosen() const { return enabled && !separator; }
};

// An item a line; a line of "-" is a separator.
std::vector<SPopupItem> PopupItemsOf(const CText& text);

class CMenuPopup : public CDrawnControl {
public:
    static constexpr unsigned kNoItem = static_cast<unsigned>(-1);
    static constexpr double kTextMargin = 9.0;  // before the text
    static constexpr double kArrowWidth = 22.0; // after it

    using CDrawnControl::CDrawnControl;

    const std::vector<SPopupItem>& GetItems() const { return fItems; }
    // The first that can be chosen is chosen then.
    virtual void SetItems(std::vector<SPopupItem> items);

    // kNoItem for none; so is a number of no item, and of a separator.
    unsigned GetChosen() const { return fChosen; }
    virtual void SetChosen(unsigned item);
    // What it shows; empty for none.
    virtual CText GetShownText() const;

    EFontKind GetFont() const { return fFont; }
    void SetFont(EFontKind font);

    // By the user: stores and sends.
    virtual void Choose(unsigned item);
    // Opens the menu below itself and waits until it is left; without a window nothing happens.
    void OpenMenu();

    void DrawInContext(const CPaintEvent& event) override;
    void PrimaryClick(const CMouseEvent& event) override;
    bool MouseWheel(const CMouseEvent& event) override;
    bool HandleKey(CKeyboardMessage& message) override;

    // Units that the widest item takes with all around it.
    static double WidthOf(const std::vector<SPopupItem>& items, EFontKind font, const CView* view);

protected:
    // A key that goes down: true when it has opened the menu or chosen an item.
    bool UseKey(const CKeyboardMessage& message);

private:
    // The next item from one that can be chosen, or that one when there is none.
    unsigned NextItem(unsigned from, bool forward) const;
    unsigned NextWith(std::uint32_t character) const;

    std::vector<SPopupItem> fItems;
    unsigned fChosen = kNoItem;
    EFontKind fFont = kFont_UIMedium;
};

template <>
class CPaneBuilder<CMenuPopup> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override { return {.fallback = kView_TabStop}; }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
