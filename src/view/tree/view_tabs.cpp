// Tab stops in pre-order: a view, then its children.
#include "view/messages/message_ids.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <algorithm>

namespace Kesto {

CView* CView::FirstStopFrom(std::size_t index)
{
    for (; index < fChildren.size(); ++index)
        if (CView* const stop = fChildren[index]->FirstTabStop())
            return stop;
    return nullptr;
}

CView* CView::LastStopBefore(std::size_t index)
{
    for (index = std::min(index, fChildren.size()); index > 0;)
        if (CView* const stop = fChildren[--index]->LastTabStop())
            return stop;
    return nullptr;
}

CView* CView::FirstTabStop()
{
    if (CanTabStopNow())
        return this;
    return IsVisible() ? FirstStopFrom(0) : nullptr;
}

CView* CView::LastTabStop()
{
    if (CView* const below = IsVisible() ? LastStopBefore(fChildren.size()) : nullptr)
        return below;
    return CanTabStopNow() ? this : nullptr;
}

CView* CView::FirstTabStopOrSelf()
{
    if (CView* const below = IsVisible() ? FirstStopFrom(0) : nullptr)
        return below;
    return CanTabStopNow() ? this : nullptr;
}

// One step to a neighbour in pre-order, from a place between this view's children; null goes up.
CView* CView::NextTabStop(CView* after, bool forward)
{
    CView* const start = after != nullptr ? after : this;
    CView* found = after == nullptr && forward ? FirstStopFrom(0) : nullptr;
    CView* child = start;
    CView* root = this;
    for (CView* at = child->GetParent(); at != nullptr && found == nullptr; at = at->GetParent()) {
        const std::size_t index = at->IndexOf(child);
        found = forward ? at->FirstStopFrom(index + 1) : at->LastStopBefore(index);
        if (found == nullptr && !forward && at->CanTabStopNow())
            found = at;
        child = root = at;
    }
    if (found == nullptr)
        found = forward ? root->FirstTabStop() : root->LastTabStop();
    return found != start ? found : nullptr;
}

bool CView::TabToNext(bool forward)
{
    CView* const next = NextTabStop(nullptr, forward);
    return next != nullptr && next->TakeTab();
}

bool CView::TabFromChild(CView& child, bool forward)
{
    CView* const next = NextTabStop(&child, forward);
    return next != nullptr && next->TakeTab();
}

bool CView::TakeTab()
{
    const CViewHold hold(*this);
    if (!AskToSurrender() || hold.IsOver() || !BecomeBullseye(false) || hold.IsOver())
        return false;
    SelectContents();
    return true;
}

bool CView::HandleKey(CKeyboardMessage& message)
{
    constexpr std::uint32_t kTab = 9; // key code and character alike
    constexpr std::uint32_t kOthers =
        CMessage::kModifier_Control | CMessage::kModifier_Alt | CMessage::kModifier_Command;
    const bool isPress = message.fID == kMessage_KeyDown && message.fKeyCode == kTab;
    const bool isCharacter = message.fID == kMessage_KeyChar && message.fChar == kTab;
    if (!(isPress || isCharacter) || !IsVisible() || !WantsBullseye() || NoTabNavigate() ||
        (message.fModifiers & kOthers) != 0)
        return false;
    if (isCharacter)
        return true; // of the press that brought the focus here
    const bool forward = (message.fModifiers & CMessage::kModifier_Shift) == 0;
    if (NextTabStop(nullptr, forward) == nullptr)
        return false;
    TabToNext(forward);
    return true;
}

} // namespace Kesto
