// Shown, enabled, active, hover, and what a view may be to the focus.
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

namespace Kesto {

// The order of steps: showing lets a view have the focus before its hook asks for it; hiding takes
// mouse and focus away from the view first and from its children after it.
void CView::ChangeShown(std::uint32_t bit, bool on)
{
    if (HasState(bit) == on)
        return;
    const CViewHold hold(*this);
    const bool was = IsVisible();
    const bool isOwnWish = bit == kState_Shown;
    if (was && isOwnWish)
        InvalidateAll();
    PutState(bit, on);
    const bool is = IsVisible();
    if (is == was)
        return;
    // The hooks run while the view can have the keyboard: after it is enabled, before it is not.
    if (is) {
        UpdateMessengerState();
        if (!hold.IsOver())
            DidShow();
        if (!hold.IsOver() && isOwnWish)
            InvalidateAll();
    } else {
        if (MouseView() == this)
            LeaveMouseView();
        if (!hold.IsOver())
            DidHide();
        if (!hold.IsOver())
            UpdateMessengerState();
    }
    CChildWalk walk(*this);
    while (CPane* const child = IsVisible() == is ? walk.Next() : nullptr)
        child->SetParentShown(is);
}

void CView::SetParentShown(bool on)
{
    ChangeShown(kState_ParentShown, on);
}

void CView::SetShown(bool on)
{
    ChangeShown(kState_Shown, on);
}

void CView::ChangeEnabled(std::uint32_t bit, bool on)
{
    if (HasState(bit) == on)
        return;
    const CViewHold hold(*this);
    const bool was = IsUsable();
    PutState(bit, on);
    const bool is = IsUsable();
    if (is == was)
        return;
    // Both hooks run while the view may have the focus.
    if (is) {
        UpdateMessengerState();
        if (!hold.IsOver())
            DidEnable();
    } else {
        DidDisable();
        if (!hold.IsOver())
            UpdateMessengerState();
    }
    if (!hold.IsOver() && bit == kState_Enabled)
        InvalidateAll();
    CChildWalk walk(*this);
    while (CPane* const child = IsUsable() == is ? walk.Next() : nullptr)
        child->SetParentEnabled(is);
}

void CView::SetParentEnabled(bool on)
{
    ChangeEnabled(kState_ParentEnabled, on);
}

void CView::SetEnabled(bool on)
{
    ChangeEnabled(kState_Enabled, on);
}

void CView::SetActive(bool on)
{
    if (HasState(kState_Active) == on)
        return;
    const CViewHold hold(*this);
    PutState(kState_Active, on);
    if (HasState(kState_InvalidOnActivate))
        InvalidateAll();
    if (on)
        DidActivate();
    else
        DidDeactivate();
    CChildWalk walk(*this);
    while (CPane* const child = HasState(kState_Active) == on ? walk.Next() : nullptr)
        child->SetActive(on);
}

void CView::PutHover(std::uint32_t bits)
{
    constexpr std::uint32_t kBoth = kState_Dragged | kState_Hot;
    if ((fState & kBoth) == bits)
        return;
    const CViewHold hold(*this);
    PutState(kBoth, false);
    PutState(bits, true);
    DidChangeHover();
    CChildWalk walk(*this);
    while (CPane* const child = (fState & kBoth) == bits ? walk.Next() : nullptr)
        child->PutHover(bits);
}

void CView::ClearHover()
{
    PutHover(0);
}

void CView::SetDragged(bool on)
{
    if (on || HasState(kState_Dragged))
        PutHover(on ? kState_Dragged : 0);
}

void CView::SetHot(bool on)
{
    if (on || HasState(kState_Hot))
        PutHover(on ? kState_Hot : 0);
}

void CView::GetScrollMode(bool& chunky, bool& entire) const
{
    chunky = HasState(kState_ChunkyScroll);
    entire = HasState(kState_EntireScroll);
}

void CView::SetTargetOptions(bool target, bool bullseye, bool tabStop)
{
    bullseye = bullseye || tabStop;
    PutState(kState_WantsTarget, target || bullseye);
    PutState(kState_WantsBullseye, bullseye);
    PutState(kState_IsTabStop, tabStop);
    UpdateMessengerState();
}

void CView::UpdateMessengerState()
{
    const CViewHold hold(*this);
    SetCanTarget(IsVisible() && IsUsable() && WantsTarget());
    // Asked anew, since the hooks of the first may have changed what they like.
    if (!hold.IsOver())
        SetCanBullseye(IsVisible() && IsUsable() && WantsBullseye());
}

} // namespace Kesto
