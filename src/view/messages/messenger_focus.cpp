// The path of targets, and the bullseye at its end.
#include "view/messages/messenger_watch.h"
#include "view/messages/process_link.h"

namespace Kesto {
namespace {

CMessenger* gBullseye = nullptr;

CMessenger* ProcessMessenger()
{
    CProcessLink* const process = CProcessLink::Current();
    return process != nullptr ? &process->ProcessMessenger() : nullptr;
}

} // namespace

CMessenger::~CMessenger()
{
    if (gBullseye == this)
        gBullseye = nullptr;
    LeaveParentTarget();
    CMessengerWatch::Forget(this);
    if (CProcessLink* const process = CProcessLink::Current())
        process->ForgetMessenger(this);
}

CMessenger* CMessenger::GetBullseye()
{
    return gBullseye != nullptr ? gBullseye : ProcessMessenger();
}

bool CMessenger::Surrender(bool force)
{
    return gBullseye == nullptr || gBullseye->CanSurrender(force);
}

bool CMessenger::CanTarget() const
{
    return HasFocusFlag(kCanTarget);
}

bool CMessenger::CanBullseye() const
{
    return HasFocusFlag(kCanTarget) && HasFocusFlag(kCanBullseye);
}

bool CMessenger::IsTarget() const
{
    return HasFocusFlag(kIsTarget);
}

bool CMessenger::IsBullseye() const
{
    return HasFocusFlag(kIsBullseye);
}

// The ability is cleared before the focus is moved, so that the way up doesn't lead back here.
void CMessenger::SetCanTarget(bool on)
{
    if (HasFocusFlag(kCanTarget) == on)
        return;
    SetFocusFlag(kCanTarget, on);
    const CMessengerWatch watch(this);
    if (on) {
        OnTargetEnable();
        if (!watch.IsGone() && HasFocusFlag(kCanBullseye))
            OnBullseyeEnable();
        return;
    }
    ResignBullseyeToParent(true);
    if (!watch.IsGone() && HasFocusFlag(kCanBullseye))
        OnBullseyeDisable();
    if (!watch.IsGone())
        OnTargetDisable();
}

void CMessenger::SetCanBullseye(bool on)
{
    if (HasFocusFlag(kCanBullseye) == on)
        return;
    SetFocusFlag(kCanBullseye, on);
    const CMessengerWatch watch(this);
    if (!on)
        ResignBullseye(true);
    if (watch.IsGone() || !HasFocusFlag(kCanTarget))
        return;
    if (on)
        OnBullseyeEnable();
    else
        OnBullseyeDisable();
}

CMessenger* CMessenger::FindBullseye()
{
    CMessenger* deepest = nullptr;
    for (CMessenger* at = this; at != nullptr; at = at->fTarget)
        if (at->CanBullseye())
            deepest = at;
    return deepest != nullptr ? deepest : DefaultBullseye();
}

CMessenger* CMessenger::DefaultBullseye()
{
    return CanBullseye() ? this : nullptr;
}

CMessenger* CMessenger::NearestBullseyeUp()
{
    if (CanBullseye())
        return this;
    return fParent != nullptr ? fParent->NearestBullseyeUp() : nullptr;
}

CMessenger* CMessenger::NearestBullseyeUpAlternate()
{
    if (CanBullseye())
        return this;
    return fParent != nullptr ? fParent->NearestBullseyeUpAlternate() : nullptr;
}

bool CMessenger::BecomeBullseyeIfPossible(bool force)
{
    if (!CanTarget())
        return false;
    if (IsTarget())
        return true;
    CMessenger* const found = FindBullseye();
    // BecomeBullseye of one that can't be it comes back here, so a class that names itself all the
    // same would go round.
    return found != nullptr && (found != this || CanBullseye()) && found->BecomeBullseye(force);
}

// What leads on from here resigns before the path above is moved: a refusal below must leave that
// as it is.
bool CMessenger::BecomeBullseye(bool force)
{
    if (!CanBullseye())
        return BecomeBullseyeIfPossible(force);
    if (IsBullseye())
        return true;
    const CMessengerWatch watch(this);
    if (fTarget != nullptr && !fTarget->ResignTarget(force))
        return false;
    if (watch.IsGone())
        return false;
    if (fParent != nullptr && !fParent->TargetChild(this, force))
        return false;
    if (watch.IsGone())
        return false;
    SetBullseye(true);
    return true;
}

bool CMessenger::ResignBullseyeToParent(bool force)
{
    if (!IsTarget())
        return true;
    CMessenger* up = fParent != nullptr ? fParent->NearestBullseyeUpAlternate() : nullptr;
    if (fParent != nullptr && (up == nullptr || up == this))
        up = fParent->NearestBullseyeUp();
    if (up != nullptr)
        return up->BecomeBullseye(force);
    CMessenger* const process = ProcessMessenger();
    return process != nullptr && process->BecomeBullseyeIfPossible(force);
}

bool CMessenger::ResignBullseye(bool force)
{
    return !IsBullseye() || ResignBullseyeToParent(force);
}

bool CMessenger::CanSurrender(bool /*force*/)
{
    return true;
}

void CMessenger::DidBecomeBullseye()
{
    const CMessengerWatch watch(this);
    const Platform::NativeWindow window = GetFocusWindow();
    if (window != nullptr && window != Platform::FocusedWindow())
        Platform::FocusWindow(window);
    if (!watch.IsGone())
        TargetChanged();
    if (!watch.IsGone())
        UpdateChain();
}

void CMessenger::DidLoseBullseye()
{
    BullseyeLost();
}

bool CMessenger::BecomeBullseyeAndNotify(bool force)
{
    const CMessengerWatch watch(this);
    if (!BecomeBullseyeIfPossible(force))
        return false;
    if (!watch.IsGone())
        BullseyeTaken();
    return true;
}

void CMessenger::SetTarget(bool on)
{
    if (on) {
        if (!IsTarget()) {
            SetFocusFlag(kIsTarget, true);
            OnBecameTarget();
        }
        return;
    }
    const CMessengerWatch watch(this);
    SetBullseye(false);
    if (!watch.IsGone() && IsTarget()) {
        SetFocusFlag(kIsTarget, false);
        OnLostTarget();
    }
}

// The keyboard is here before DidBecomeBullseye is called, and gone before DidLoseBullseye is: a
// hook that asks for the bullseye finds the new state.
void CMessenger::SetBullseye(bool on)
{
    if (on) {
        const CMessengerWatch watch(this);
        fTarget = nullptr;
        SetTarget(true);
        if (watch.IsGone())
            return;
        gBullseye = this;
        if (!IsBullseye()) {
            SetFocusFlag(kIsBullseye, true);
            DidBecomeBullseye();
        }
        return;
    }
    if (gBullseye == this)
        gBullseye = nullptr;
    if (IsBullseye()) {
        SetFocusFlag(kIsBullseye, false);
        DidLoseBullseye();
    }
}

bool CMessenger::ResignTarget(bool force)
{
    if (!IsTarget())
        return true;
    const CMessengerWatch watch(this);
    if (!CanSurrender(force) && !force)
        return false;
    if (watch.IsGone())
        return true; // and off the path
    if (fTarget != nullptr && !fTarget->ResignTarget(force))
        return false;
    if (!watch.IsGone())
        SetTarget(false);
    return true;
}

// A hook may destroy either messenger, or move the child to another parent. A link to what isn't a
// child any more is never made: nobody would clear it when that dies.
bool CMessenger::TargetChild(CMessenger* child, bool force)
{
    if (!CanTarget())
        return false;
    const CMessengerWatch here(this);
    const CMessengerWatch below(child);
    const auto isParted = [&] {
        return here.IsGone() || below.IsGone() || (child != nullptr && child->fParent != this);
    };
    if (fParent != nullptr && !fParent->TargetChild(this, force))
        return false;
    if (isParted())
        return false;
    if (fTarget != nullptr && fTarget != child && !fTarget->ResignTarget(force))
        return false;
    if (isParted())
        return false;
    fTarget = child;
    SetBullseye(false);
    if (isParted())
        return false;
    SetTarget(true);
    return !isParted();
}

bool CMessenger::LeavePath()
{
    const CMessengerWatch watch(this);
    ResignBullseyeToParent(true);
    // Above it there may be none that can be the bullseye.
    if (!watch.IsGone())
        ResignTarget(true);
    if (watch.IsGone())
        return false;
    DropPath();
    LeaveParentTarget();
    return true;
}

void CMessenger::ReclaimBullseye()
{
    gBullseye = nullptr;
    for (CMessenger* at = this; at != nullptr; at = at->fTarget)
        if (at->IsBullseye())
            gBullseye = at;
}

// Clears what hooks have taken back while the path was left, without calling them again.
void CMessenger::DropPath()
{
    constexpr std::uint32_t kBoth = kIsTarget | kIsBullseye;
    for (CMessenger* at = this; at != nullptr && at->HasFocusFlag(kBoth); at = at->fTarget) {
        at->SetFocusFlag(kBoth, false);
        if (gBullseye == at)
            gBullseye = nullptr;
    }
}

void CMessenger::UpdateChain()
{
    const CMessengerWatch watch(this);
    OnUpdateOwn();
    if (!watch.IsGone())
        OnUpdateChain();
    if (CMessenger* const up = watch.Parent())
        up->UpdateChain();
}

} // namespace Kesto
