#include "controls/tabs/tabbed_pane.h"

#include "controls/base/label_text.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr EFontKind kFont = kFont_UIMedium;
constexpr double kLabelRoom = 24.0; // beside a label, both sides together
constexpr double kBackDrop = 3.0;   // back tabs are lower
constexpr double kFocusInset = 4.0;

} // namespace

CTabPane::CTabPane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CPane(frame, id, options | kView_Target, binding)
{
    SetOpaque(true);
}

void CTabPane::DrawBackground()
{
    GetPort()->Paint(GetBounds(), ToolColour(kColour_Panel));
}

void CTabPane::SetTitle(CText title)
{
    fTitle = std::move(title);
    if (CView* const tabs = GetParent())
        tabs->InvalidateAll();
}

CTabbedPane::CTabbedPane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CDrawnControl(frame, id, options | kView_Target, binding)
{
}

// ---------------------------------------------------------------------------------------- Pages

CText CTabbedPane::TitleOf(std::size_t page) const
{
    const CPane* const pane = GetChild(page);
    const auto* const tab = dynamic_cast<const CTabPane*>(pane);
    if (tab != nullptr && !tab->GetTitle().IsEmpty())
        return tab->GetTitle();
    if (pane != nullptr && !pane->GetID().IsNone())
        return CText(pane->GetID().Name());
    return CText(std::to_string(page + 1));
}

void CTabbedPane::InsertChild(std::size_t index, std::unique_ptr<CPane> child)
{
    const CViewHold hold(*this);
    const CPane* const front = GetChild(fFront);
    CPane::InsertChild(index, std::move(child));
    if (hold.IsOver())
        return;
    for (std::size_t i = 0; front != nullptr && i < CountChildren(); ++i)
        if (GetChild(i) == front)
            fFront = i;
    if (CountChildren() == fAwaited + 1)
        fFront = fAwaited;
    ShowFront();
}

std::unique_ptr<CPane> CTabbedPane::RemoveChild(CPane* child)
{
    const CPane* const front = GetChild(fFront);
    std::unique_ptr<CPane> removed = CPane::RemoveChild(child);
    for (std::size_t i = 0; i < CountChildren(); ++i)
        if (GetChild(i) == front)
            fFront = i;
    fFront = std::min(fFront, std::max<std::size_t>(CountChildren(), 1) - 1);
    ShowFront();
    return removed;
}

// The one that comes is shown first, so that the focus has somewhere to go.
void CTabbedPane::ShowFront()
{
    const CViewHold hold(*this);
    if (CPane* const front = GetChild(fFront))
        front->Show();
    for (std::size_t i = 0; !hold.IsOver() && i < CountChildren(); ++i)
        if (i != fFront)
            GetChild(i)->Hide();
    if (!hold.IsOver())
        InvalidateAll();
}

void CTabbedPane::SetFront(std::size_t page)
{
    fAwaited = page;
    if (page == fFront || page >= CountChildren())
        return;
    fFront = page;
    ShowFront();
}

void CTabbedPane::Choose(std::size_t page)
{
    if (page == fFront || page >= CountChildren() || !GetChild(page)->IsEnabled())
        return;
    const CViewHold hold(*this);
    const std::size_t old = fFront;
    SetFront(page);
    if (hold.IsOver() || GetID().IsNone())
        return;
    CValMsg<unsigned> message(this, GetID(), static_cast<unsigned>(page),
                              static_cast<unsigned>(old));
    Send(message);
}

std::size_t CTabbedPane::NextPage(std::size_t from, bool forward) const
{
    const std::size_t count = CountChildren();
    for (std::size_t step = 1; step < count; ++step) {
        const std::size_t page = (from + (forward ? step : count - step)) % count;
        if (GetChild(page)->IsEnabled())
            return page;
    }
    return from;
}

// ----------------------------------------------------------------------------------------- Tabs

Rect CTabbedPane::TabRect(std::size_t page) const
{
    const Rect& bounds = GetBounds();
    double left = 0.0;
    double own = 0.0;
    double all = 0.0;
    for (std::size_t i = 0; i < CountChildren(); ++i) {
        const double width = MeasureLabel(TitleOf(i).View(), kFont, this) + kLabelRoom;
        left += i < page ? width : 0.0;
        own = i == page ? width : own;
        all += width;
    }
    const double share = all > bounds.Width() ? bounds.Width() / all : 1.0;
    const double from = std::floor(left * share);
    return {bounds.left + from, bounds.top, bounds.left + std::floor((left + own) * share),
            bounds.top + kTabHeight};
}

std::optional<std::size_t> CTabbedPane::TabAt(const Point& local) const
{
    for (std::size_t i = 0; i < CountChildren(); ++i) {
        const Rect tab = TabRect(i);
        if (local.x >= tab.left && local.x < tab.right && local.y >= tab.top &&
            local.y < tab.bottom)
            return i;
    }
    return std::nullopt;
}

// ---------------------------------------------------------------------------------------- Using

void CTabbedPane::PrimaryClick(const CMouseEvent& event)
{
    const std::optional<std::size_t> tab = TabAt(PortToLocal(event.fPortPoint));
    if (IsUsable() && tab)
        Choose(*tab);
}

void CTabbedPane::MouseOver(const CMouseEvent& event)
{
    const std::optional<std::size_t> tab = TabAt(PortToLocal(event.fPortPoint));
    if (tab == fHotTab)
        return;
    fHotTab = tab;
    InvalidateAll();
}

void CTabbedPane::MouseExit()
{
    fHotTab.reset();
    CDrawnControl::MouseExit();
}

bool CTabbedPane::UseKey(const CKeyboardMessage& message)
{
    if (message.fID != kMessage_KeyDown || !IsUsable())
        return false;
    const std::uint32_t key = message.fKeyCode;
    const bool shift = (message.fModifiers & CMessage::kModifier_Shift) != 0;
    const bool control = (message.fModifiers & CMessage::kModifier_Control) != 0;
    // With Control from anywhere within; arrows only while the tabs have the focus.
    if (control && (key == kKeyCode_Tab || key == kKeyCode_PageUp || key == kKeyCode_PageDown))
        Choose(NextPage(fFront, key == kKeyCode_Tab ? !shift : key == kKeyCode_PageDown));
    else if (!IsBullseye() || !IsPlainKeyDown(message))
        return false;
    else if (key == kKeyCode_Left || key == kKeyCode_Up)
        Choose(NextPage(fFront, false));
    else if (key == kKeyCode_Right || key == kKeyCode_Down)
        Choose(NextPage(fFront, true));
    else if (key == kKeyCode_Home)
        Choose(NextPage(CountChildren() - 1, true));
    else if (key == kKeyCode_End)
        Choose(NextPage(0, false));
    else
        return false;
    return true;
}

bool CTabbedPane::HandleKey(CKeyboardMessage& message)
{
    return UseKey(message) || CDrawnControl::HandleKey(message);
}

// -------------------------------------------------------------------------------------- Drawing

void CTabbedPane::DrawTab(CSystemPort& port, std::size_t page)
{
    const bool isFront = page == fFront;
    const bool usable = IsUsable() && GetChild(page)->IsEnabled();
    const EButtonState state =
        ButtonStateOf(IsActive(), usable, false, fHotTab == page && !isFront);
    Rect tab = TabRect(page);
    CWidgetSkin::DrawTab(port, tab, state, isFront);
    // The title stands in the middle of what is drawn of the tab.
    tab.top += isFront ? 0.0 : kBackDrop;
    port.SetFont(CDrawTools::Get().GetFont(kFont));
    port.SetTextColour(ToolColour(!usable   ? kColour_LabelDisabled
                                  : isFront ? kColour_Label
                                            : kColour_LabelDim));
    DrawLabelLine(port, TitleOf(page).View(), tab, kText_Ellipsis);
    if (isFront && ShowsFocus())
        CWidgetSkin::DrawFocusLine(port, {tab.left + kFocusInset, tab.top + kFocusInset,
                                          tab.right - kFocusInset, tab.bottom - 1.0});
}

// The front tab comes last, since it opens into the pane.
void CTabbedPane::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    const Rect& bounds = GetBounds();
    CWidgetSkin::DrawTabPane(port,
                             {bounds.left, bounds.top + kTabHeight, bounds.right, bounds.bottom});
    for (std::size_t i = 0; i < CountChildren(); ++i)
        if (i != fFront)
            DrawTab(port, i);
    if (fFront < CountChildren())
        DrawTab(port, fFront);
}

} // namespace Kesto
