#include "view/messages/messenger.h"

#include "view/messages/message_recorder.h"
#include "view/messages/messenger_watch.h"

namespace Kesto {

CMessenger::CMessenger(CMessenger* parent, CObjID id, std::uint32_t abilities)
    : fParent(parent), fID(id), fFlags(abilities & (kCanTarget | kCanBullseye))
{
}

void CMessenger::SetParentMessenger(CMessenger* parent)
{
    if (parent != fParent)
        LeaveParentTarget();
    fParent = parent;
}

void CMessenger::LeaveParentTarget()
{
    if (fParent != nullptr && fParent->fTarget == this)
        fParent->fTarget = nullptr;
}

void CMessenger::SetID(CObjID id)
{
    fID = id;
}

CObjID CMessenger::GetID() const
{
    return fID;
}

CMessenger* CMessenger::FindMessenger(CObjID id)
{
    return fID == id ? this : FindSubMessenger(id);
}

CMessenger* CMessenger::FindSubMessenger(CObjID /*id*/)
{
    return nullptr;
}

Platform::NativeWindow CMessenger::GetSystemWindow()
{
    return fParent != nullptr ? fParent->GetSystemWindow() : nullptr;
}

Platform::NativeWindow CMessenger::GetFocusWindow()
{
    return GetSystemWindow();
}

Platform::NativeWindow CMessenger::GetOwnerWindow()
{
    return fParent != nullptr ? fParent->GetOwnerWindow() : nullptr;
}

Platform::NativeWindow CMessenger::GetParentSystemWindow()
{
    return fParent != nullptr ? fParent->GetSystemWindow() : nullptr;
}

Platform::NativeWindow CMessenger::GetOwnerWindowOrActive()
{
    const Platform::NativeWindow owner = fParent != nullptr ? fParent->GetOwnerWindow() : nullptr;
    return owner != nullptr ? owner : Platform::FrontmostWindow();
}

bool CMessenger::IsForeground()
{
    return fParent != nullptr && fParent->IsForeground();
}

void CMessenger::Broadcast(void* argument, bool flag)
{
    const CMessengerWatch watch(this);
    OnBroadcast(argument, flag);
    if (CMessenger* const up = watch.Parent())
        up->Broadcast(argument, flag);
}

// How a message climbs: asked here, then sent one level up. `Witness` sees each handler asked and
// its answer.
template <class Witness, class Message, bool (CMessenger::*handle)(Message&),
          bool (CMessenger::*send)(Message&)>
bool CMessenger::ClimbBefore(Message& message)
{
    Witness witness(*this, message);
    CMessenger* up = nullptr;
    {
        const CMessengerWatch watch(this, &message);
        witness.Asks(*this);
        const bool eaten = (this->*handle)(message);
        witness.Answered(eaten);
        if (eaten)
            return true;
        up = watch.Parent();
    }
    return up != nullptr && (up->*send)(message);
}

template <class Message, bool (CMessenger::*handle)(Message&), bool (CMessenger::*send)(Message&)>
bool CMessenger::Climb(Message& message)
{
    if (CMessageRecorder::IsOn()) [[unlikely]]
        return ClimbBefore<CMessageRecorder::Step, Message, handle, send>(message);
    return ClimbBefore<CMessageRecorder::NoStep, Message, handle, send>(message);
}

bool CMessenger::SendToParent(CMessage& message)
{
    return fParent != nullptr && fParent->Send(message);
}

bool CMessenger::Send(CMessage& message)
{
    return message.SendTo(*this);
}

bool CMessenger::SendCommandToParent(CCommandMessage& message)
{
    return fParent != nullptr && fParent->SendCommand(message);
}

bool CMessenger::SendCommand(CCommandMessage& message)
{
    return Climb<CCommandMessage, &CMessenger::HandleCommand, &CMessenger::SendCommand>(message);
}

bool CMessenger::HandleCommand(CCommandMessage& /*message*/)
{
    return false;
}

bool CMessenger::SendValueToParent(CValueMessage& message)
{
    return fParent != nullptr && fParent->SendValue(message);
}

bool CMessenger::SendValue(CValueMessage& message)
{
    return Climb<CValueMessage, &CMessenger::HandleValue, &CMessenger::SendValue>(message);
}

bool CMessenger::HandleValue(CValueMessage& /*message*/)
{
    return false;
}

bool CMessenger::SendKeyToParent(CKeyboardMessage& message)
{
    return fParent != nullptr && fParent->SendKey(message);
}

bool CMessenger::SendKey(CKeyboardMessage& message)
{
    return Climb<CKeyboardMessage, &CMessenger::HandleKey, &CMessenger::SendKey>(message);
}

bool CMessenger::HandleKey(CKeyboardMessage& /*message*/)
{
    return false;
}

bool CMessenger::SendMenuToParent(CMenuMessage& message)
{
    return fParent != nullptr && fParent->SendMenu(message);
}

bool CMessenger::SendMenu(CMenuMessage& message)
{
    return Climb<CMenuMessage, &CMessenger::HandleMenu, &CMessenger::SendMenu>(message);
}

bool CMessenger::HandleMenu(CMenuMessage& /*message*/)
{
    return false;
}

bool CMessenger::SendOtherToParent(CMessage& message)
{
    return fParent != nullptr && fParent->SendOther(message);
}

bool CMessenger::SendOther(CMessage& message)
{
    return Climb<CMessage, &CMessenger::HandleOther, &CMessenger::SendOther>(message);
}

bool CMessenger::HandleOther(CMessage& /*message*/)
{
    return false;
}

void CMessenger::BullseyeTaken() {}
void CMessenger::OnTargetEnable() {}
void CMessenger::OnTargetDisable() {}
void CMessenger::OnBullseyeEnable() {}
void CMessenger::OnBullseyeDisable() {}
void CMessenger::OnBecameTarget() {}
void CMessenger::OnLostTarget() {}
void CMessenger::TargetChanged() {}
void CMessenger::BullseyeLost() {}
void CMessenger::OnUpdateChain() {}
void CMessenger::OnUpdateOwn() {}
void CMessenger::OnBroadcast(void* /*argument*/, bool /*flag*/) {}

} // namespace Kesto
