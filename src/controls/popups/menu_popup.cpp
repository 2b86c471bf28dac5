#include "controls/popups/menu_popup.h"

#include "controls/base/label_text.h"
#include "controls/base/natural_size.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/device_font.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"
#include "platform/windows/popup_menu.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr double kCellHeight = CWidgetSkin::kCellHeight;
constexpr double kLeastWidth = 72.0;
constexpr double kBodyRoom = 1.0; // around the body

constexpr PropertyRow kText{VexName("text"), 0, "its items, one a line; - is a line between them"};
constexpr PropertyRow kItem{VexName("item_id"), 0, "the item chosen at first, counted from 0"};
constexpr PropertyRow kFont{VexName("control_font"), kFont_UIMedium, "of its text"};
constexpr PropertyRow kRows[] = {kText, kItem, kFont};

// Of the menu that opens, as of a field, where the system doesn't draw it:
// at least as wide as the popup's body.
Platform::MenuLook MenuLookOf(EFontKind font, double scale, double width)
{
    const auto pixels = [scale](double units) { return std::max(ToDevice(units, scale), 1); };
    return {.ground = ToolColour(kColour_Field),
            .edge = ToolColour(kColour_Border),
            .text = ToolColour(kColour_FieldText),
            .dimText = ToolColour(kColour_FieldTextDisabled),
            .lit = ToolColour(kColour_Sel),
            .litText = ToolColour(kColour_SelText),
            .font = DeviceFontSpec(CDrawTools::Get().GetFont(font), 1.0, scale),
            .padding = pixels(4.0),
            .markWidth = pixels(20.0),
            .separatorHeight = pixels(7.0),
            .leastWidth = pixels(width - 2.0 * kBodyRoom)};
}

bool IsLetter(std::uint32_t code)
{
    return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

char ToCapital(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

std::vector<SPopupItem> PopupItemsOf(const CText& text)
{
    std::vector<SPopupItem> items;
    std::string_view rest = text.View();
    while (!rest.empty()) {
        const std::size_t end = rest.find_first_of("\r\n");
        const std::string_view line = rest.substr(0, end);
        if (!line.empty())
            items.push_back({.label = CText(line), .separator = line == "-"});
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return items;
}

double CMenuPopup::WidthOf(const std::vector<SPopupItem>& items, EFontKind font, const CView* view)
{
    double widest = 0.0;
    for (const SPopupItem& item : items)
        widest = std::max(widest, MeasureLabel(item.label.View(), font, view));
    return std::max(kTextMargin + widest + kArrowWidth, kLeastWidth);
}

// ---------------------------------------------------------------------------------------- Items

void CMenuPopup::SetItems(std::vector<SPopupItem> items)
{
    fItems = std::move(items);
    fChosen = NextItem(kNoItem, true);
    InvalidateAll();
}

void CMenuPopup::SetChosen(unsigned item)
{
    fChosen = item < fItems.size() && !fItems[item].separator ? item : kNoItem;
    InvalidateAll();
}

CText CMenuPopup::GetShownText() const
{
    return fChosen < fItems.size() ? fItems[fChosen].label : CText();
}

void CMenuPopup::SetFont(EFontKind font)
{
    fFont = font;
    InvalidateAll();
}

void CMenuPopup::Choose(unsigned item)
{
    if (item == fChosen || item >= fItems.size() || !fItems[item].CanBeChosen())
        return;
    const CViewHold hold(*this);
    const unsigned old = fChosen;
    SetChosen(item);
    if (GetID().IsNone())
        return;
    CValMsg<unsigned> message(this, GetID(), fChosen, old);
    Send(message);
}

unsigned CMenuPopup::NextItem(unsigned from, bool forward) const
{
    const auto count = static_cast<unsigned>(fItems.size());
    unsigned item = from < count ? from : forward ? kNoItem : count;
    while (true) {
        item = forward ? item + 1 : item - 1; // kNoItem is before 0
        if (item >= count)
            return from;
        if (fItems[item].CanBeChosen())
            return item;
    }
}

// The next one, round the end, whose label begins so.
unsigned CMenuPopup::NextWith(std::uint32_t character) const
{
    const auto count = static_cast<unsigned>(fItems.size());
    for (unsigned step = 1; step <= count; ++step) {
        const unsigned item = (fChosen == kNoItem ? step - 1 : fChosen + step) % count;
        const std::string_view label = fItems[item].label.View();
        if (fItems[item].CanBeChosen() && !label.empty() &&
            ToCapital(label.front()) == static_cast<char>(character))
            return item;
    }
    return fChosen;
}

// ---------------------------------------------------------------------------------------- Using

// The menu pumps, and may end this view.
void CMenuPopup::OpenMenu()
{
    const Platform::NativeWindow window = GetSystemWindow();
    if (window == nullptr || fItems.empty())
        return;
    const CViewHold hold(*this);
    std::vector<Platform::MenuRow> rows;
    for (unsigned i = 0; i < fItems.size(); ++i)
        rows.push_back({.id = static_cast<int>(i) + 1,
                        .text = std::string(fItems[i].label.View()),
                        .enabled = fItems[i].enabled,
                        .checked = i == fChosen,
                        .separator = fItems[i].separator,
                        .rows = {}});
    const PixelRect screen = GetGlobalRect();
    SetPressed(true);
    const PixelRect body{screen.left + ToDevice(kBodyRoom, GetScale()), screen.top, screen.right,
                         screen.bottom};
    const int row = Platform::RunPopupMenu(window, body, rows,
                                           MenuLookOf(fFont, GetScale(), GetBounds().Width()));
    if (hold.IsOver())
        return;
    SetPressed(false);
    if (row > 0)
        Choose(static_cast<unsigned>(row - 1));
}

void CMenuPopup::PrimaryClick(const CMouseEvent&)
{
    if (IsUsable())
        OpenMenu();
}

// While it has the focus only: else it would change when what is around it is scrolled.
bool CMenuPopup::MouseWheel(const CMouseEvent& event)
{
    if (!IsUsable() || !IsBullseye() || event.fWheel.y == 0.0)
        return false;
    Choose(NextItem(fChosen, event.fWheel.y < 0.0));
    return true;
}

bool CMenuPopup::UseKey(const CKeyboardMessage& message)
{
    const bool isDown = message.fID == kMessage_KeyDown || message.fID == kMessage_SysKeyDown;
    const bool withAlt = (message.fModifiers & CMessage::kModifier_Alt) != 0;
    const std::uint32_t key = message.fKeyCode;
    if (isDown && ((withAlt && (key == kKeyCode_Down || key == kKeyCode_Up)) ||
                   (!withAlt && key == kKeyCode_F4))) {
        OpenMenu();
        return true;
    }
    if (!IsPlainKeyDown(message) || (key != kKeyCode_Up && key != kKeyCode_Down))
        return false;
    Choose(NextItem(fChosen, key == kKeyCode_Down));
    return true;
}

bool CMenuPopup::HandleKey(CKeyboardMessage& message)
{
    if (!IsBullseye() || !IsUsable())
        return CDrawnControl::HandleKey(message);
    if (UseKey(message))
        return true;
    if (!IsPlainKeyDown(message))
        return CDrawnControl::HandleKey(message);
    if (message.fKeyCode == kKeyCode_Space)
        OpenMenu();
    else if (message.fKeyCode == kKeyCode_Home)
        Choose(NextItem(kNoItem, true));
    else if (message.fKeyCode == kKeyCode_End)
        Choose(NextItem(kNoItem, false));
    else if (IsLetter(message.fKeyCode))
        Choose(NextWith(message.fKeyCode));
    else
        return CDrawnControl::HandleKey(message);
    return true;
}

void CMenuPopup::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    const EButtonState state = GetDrawState();
    CWidgetSkin::DrawPopup(port, bounds, state, ShowsFocus());
    port.SetFont(CDrawTools::Get().GetFont(fFont));
    port.SetTextColour(ToolColour(CWidgetSkin::ButtonTextRole(state)));
    DrawLabelLine(
        port, GetShownText().View(),
        {bounds.left + kTextMargin, bounds.top, bounds.right - kArrowWidth, bounds.bottom},
        kText_Left | kText_Ellipsis);
}

// ------------------------------------------------------------------------------------- Building

CView* CPaneBuilder<CMenuPopup>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    const double width =
        CMenuPopup::WidthOf(PopupItemsOf(reader.Label(kText)),
                            static_cast<EFontKind>(reader.Integer(kFont)), owner.fCurrentView);
    SetNaturalSize(owner.fLayoutRecord, {width, kCellHeight});
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CMenuPopup>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CMenuPopup>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CMenuPopup>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

void CPaneBuilder<CMenuPopup>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& popup = static_cast<CMenuPopup&>(pane);
    popup.SetFont(static_cast<EFontKind>(reader.Integer(kFont)));
    popup.SetItems(PopupItemsOf(reader.Label(kText)));
    if (std::int32_t item = 0; reader.TryInteger(kItem.key, item))
        popup.SetChosen(static_cast<unsigned>(item));
}

} // namespace Kesto
