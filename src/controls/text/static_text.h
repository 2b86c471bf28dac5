// CStaticText, a label: a text of one or several lines that nobody edits. It may belong to a field:
// a drag on it changes the field's number, and its key leads there.
#pragma once

#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"
#include "layout/build/pane_builder.h"
#include "layout/vocabulary/text_options.h"
#include "view/tree/pane.h"

namespace Kesto {

class CSystemPort;

// How a label draws its text.
struct StaticTextStyle {
    EFontKind font = kFont_UI;
    std::uint32_t options = kStatic_NoOptions; // EStaticOptions
    std::int32_t alignX = kAlign_Default;      // ETextAlignment; the default is left and centred
    std::int32_t alignY = kAlign_Default;
    std::int32_t trim = kTrim_End;
};

class CStaticText : public CPane {
public:
    using CPane::CPane;

    void SetText(const CText& text);
    const CText& GetText() const { return fText; }
    void SetStyle(const StaticTextStyle& style);
    const StaticTextStyle& GetStyle() const { return fStyle; }

    // The field that a drag on this label scrubs; none for a label of its own.
    void SetScrubId(CObjID id);
    CObjID GetScrubId() const { return fScrubId; }

    // What gets the focus by the label's key, the letter after its "&".
    void SetHotkeyId(CObjID id);
    CObjID GetHotkeyId() const { return fHotkeyId; }

    bool HandleKey(CKeyboardMessage& message) override;
    void PrimaryClick(const CMouseEvent& event) override;
    void DrawInContext(const CPaintEvent& event) override;

    // Units that a text takes in the port's font: as wide as its longest line, or broken within a
    // width that is not 0; at least one line high.
    // With `marked`, "&" takes no room.
    static Point SizeOf(const CSystemPort& port, std::string_view text, double width, bool marked);

private:
    CText fText;
    StaticTextStyle fStyle;
    CObjID fScrubId;
    CObjID fHotkeyId;
};

template <>
class CPaneBuilder<CStaticText> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // The natural size is that of the text.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
