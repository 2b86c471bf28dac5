// What the messenger does, in a hold: handlers and hooks of focus may dispose of their view.
#include "view/tree/view.h"
#include "view/tree/view_hold.h"

#include <optional>

namespace Kesto {

bool CView::SendCommand(CCommandMessage& message)
{
    const CViewHold hold(*this);
    return CMessenger::SendCommand(message);
}

bool CView::SendValue(CValueMessage& message)
{
    const CViewHold hold(*this);
    return CMessenger::SendValue(message);
}

bool CView::SendKey(CKeyboardMessage& message)
{
    const CViewHold hold(*this);
    return CMessenger::SendKey(message);
}

bool CView::SendMenu(CMenuMessage& message)
{
    const CViewHold hold(*this);
    return CMessenger::SendMenu(message);
}

bool CView::SendOther(CMessage& message)
{
    const CViewHold hold(*this);
    return CMessenger::SendOther(message);
}

void CView::SetCanTarget(bool on)
{
    const CViewHold hold(*this);
    CMessenger::SetCanTarget(on);
}

void CView::SetCanBullseye(bool on)
{
    const CViewHold hold(*this);
    CMessenger::SetCanBullseye(on);
}

bool CView::BecomeBullseye(bool force)
{
    const CViewHold hold(*this);
    return CMessenger::BecomeBullseye(force);
}

bool CView::BecomeBullseyeAndNotify(bool force)
{
    const CViewHold hold(*this);
    return CMessenger::BecomeBullseyeAndNotify(force);
}

void CView::SetTarget(bool on)
{
    const CViewHold hold(*this);
    CMessenger::SetTarget(on);
}

void CView::SetBullseye(bool on)
{
    const CViewHold hold(*this);
    CMessenger::SetBullseye(on);
}

bool CView::ResignTarget(bool force)
{
    const CViewHold hold(*this);
    return CMessenger::ResignTarget(force);
}

bool CView::TargetChild(CMessenger* child, bool force)
{
    const CViewHold hold(*this);
    return CMessenger::TargetChild(child, force);
}

void CView::UpdateChain()
{
    const CViewHold hold(*this);
    CMessenger::UpdateChain();
}

void CView::Broadcast(void* argument, bool flag)
{
    const CViewHold hold(*this);
    CMessenger::Broadcast(argument, flag);
}

void CView::DidBecomeBullseye()
{
    const CViewHold hold(*this);
    CMessenger::DidBecomeBullseye();
    if (!hold.IsOver() && DrawsTargetRing())
        InvalidateAll();
}

void CView::DidLoseBullseye()
{
    const CViewHold hold(*this);
    CMessenger::DidLoseBullseye();
    if (!hold.IsOver() && DrawsTargetRing())
        InvalidateAll();
}

// Whether whoever has the focus would give it up. Safe for a field that disposes of itself when it
// is asked.
bool CView::AskToSurrender()
{
    std::optional<CViewHold> hold;
    if (auto* const view = dynamic_cast<CView*>(GetBullseye()))
        hold.emplace(*view);
    return Surrender(false);
}

} // namespace Kesto
