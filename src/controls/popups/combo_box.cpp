#include "controls/popups/combo_box.h"

#include "controls/base/label_text.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

namespace Kesto {

namespace {

constexpr PropertyRow kOptions{VexName("combo_options"), kCombo_NoOptions, "a sum of options"};
constexpr PropertyRow kEditable{VexName("combo_editable"), 0, "a text can be typed"};
constexpr PropertyRow kRows[] = {kOptions, kEditable};

constexpr double kFrame = 2.0; // around the field: the edge, or the ring of the focus

// Hands the keys that open the menu and choose from it to the box first. It lies at the box's
// corner, and covers what it doesn't draw.
class CComboField final : public CEditString {
public:
    explicit CComboField(CComboBox& box) : CEditString({}, kComboBox_Edit), fBox(box) {}

    bool HandleEditKey(CKeyboardMessage& message) override { return fBox.TakeFieldKey(message); }
    void DrawInContext(const CPaintEvent& event) override
    {
        CSystemPort& port = *GetPort();
        const Rect& bounds = GetBounds();
        fBox.DrawBox(port);
        port.SaveState();
        port.IntersectClip(Rect{bounds.left + kFrame + 1.0, bounds.top + kFrame, bounds.right,
                                bounds.bottom - kFrame});
        CEditString::DrawInContext(event);
        port.RestoreState();
    }

private:
    CComboBox& fBox; // the parent
};

} // namespace

void CComboBox::SetEditable(bool on)
{
    if (on == (fField != nullptr))
        return;
    if (!on) {
        CEditString* const gone = fField;
        fField = nullptr;
        gone->Dispose();
        SetTargetOptions(true, true, true);
        return;
    }
    const CText shown = GetShownText();
    fField = AppendChild(std::make_unique<CComboField>(*this));
    fField->SetTextOptions(kEdit_NoFrame);
    fField->SetFont(GetFont());
    fField->SetText(shown);
    // The box gives up the focus that it has, and is then a target on the field's path only.
    SetTargetOptions(false, false, false);
    SetTargetOptions(true, false, false);
    PlaceField();
}

void CComboBox::PlaceField()
{
    const Rect& bounds = GetBounds();
    if (fField != nullptr)
        fField->SetFrame({bounds.left, bounds.top, bounds.right - kArrowWidth - 1, bounds.bottom});
}

void CComboBox::DidResize()
{
    const CViewHold hold(*this);
    CMenuPopup::DidResize();
    if (!hold.IsOver())
        PlaceField();
}

void CComboBox::SetItems(std::vector<SPopupItem> items)
{
    CMenuPopup::SetItems(std::move(items));
    SetChosen(GetChosen());
}

void CComboBox::SetChosen(unsigned item)
{
    CMenuPopup::SetChosen(item);
    if (fField != nullptr && GetChosen() != kNoItem)
        fField->SetText(CMenuPopup::GetShownText());
}

CText CComboBox::GetShownText() const
{
    return fField != nullptr ? fField->GetText() : CMenuPopup::GetShownText();
}

unsigned CComboBox::ItemOf(const CText& text) const
{
    const std::vector<SPopupItem>& items = GetItems();
    for (unsigned i = 0; i < items.size(); ++i)
        if (items[i].CanBeChosen() && items[i].label == text)
            return i;
    return kNoItem;
}

void CComboBox::SetText(const CText& text)
{
    if (fField != nullptr)
        fField->SetText(text);
    CMenuPopup::SetChosen(ItemOf(text));
}

bool CComboBox::HandleValue(CValueMessage& message)
{
    if (fField == nullptr || message.fSource != fField)
        return CMenuPopup::HandleValue(message);
    CMenuPopup::SetChosen(ItemOf(fField->GetText()));
    if (GetID().IsNone())
        return true;
    CValueMessage typed(this, GetID(), message.fPhase);
    Send(typed);
    return true;
}

// The field takes the presses on its part itself.
void CComboBox::PrimaryClick(const CMouseEvent& event)
{
    if (fField != nullptr && IsUsable())
        fField->BecomeBullseye(false);
    CMenuPopup::PrimaryClick(event);
}

// The field has got the focus or lost it.
void CComboBox::UpdateChain()
{
    InvalidateAll();
    CMenuPopup::UpdateChain();
}

void CComboBox::DrawBox(CSystemPort& port) const
{
    const bool hasFocus = fField != nullptr ? fField->IsBullseye() && IsActive() : ShowsFocus();
    CWidgetSkin::DrawField(port, GetBounds(),
                           {.enabled = IsUsable(), .hot = IsHovered(), .focused = hasFocus});
}

void CComboBox::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    const bool enabled = IsUsable();
    DrawBox(port);
    const Rect arrow{bounds.right - kArrowWidth, bounds.top + kFrame, bounds.right - kFrame,
                     bounds.bottom - kFrame};
    if (IsPressed())
        port.Paint(arrow, ToolColour(kColour_ButtonPressed));
    port.Paint(Rect{arrow.left - 1, arrow.top, arrow.left, arrow.bottom},
               ToolColour(enabled ? kColour_Border : kColour_BorderDisabled));
    CWidgetSkin::DrawArrow(port, {(arrow.left + arrow.right) / 2, (arrow.top + arrow.bottom) / 2},
                           EArrow::kDown, enabled);
    // The field of an editable box draws the text itself.
    if (fField != nullptr)
        return;
    port.SetFont(CDrawTools::Get().GetFont(GetFont()));
    port.SetTextColour(ToolColour(enabled ? kColour_FieldText : kColour_FieldTextDisabled));
    DrawLabelLine(
        port, GetShownText().View(),
        {bounds.left + CEditString::kTextMargin, bounds.top, arrow.left - 2, bounds.bottom},
        kText_Left | kText_Ellipsis);
}

void CPaneBuilder<CComboBox>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CMenuPopup>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CComboBox>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CComboBox>(parameters.frame, parameters.id, parameters.options,
                                       parameters.binding);
}

void CPaneBuilder<CComboBox>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CMenuPopup>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    bool editable = (reader.Integer(kOptions) & kCombo_Editable) != 0;
    reader.TryFlag(kEditable.key, editable);
    static_cast<CComboBox&>(pane).SetEditable(editable);
}

} // namespace Kesto
