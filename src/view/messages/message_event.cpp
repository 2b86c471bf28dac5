#include "view/messages/message_event.h"

#include "view/messages/messenger.h"
#include "view/messages/process_link.h"

#include <utility>

namespace Kesto {

const CMessageEvent* CMessageEvent::Post(const CMessage& message, CMessenger* to, Routing routing,
                                         std::int8_t priority)
{
    if (routing == Routing::kMessenger && to == nullptr)
        return nullptr;
    auto event = std::make_unique<CMessageEvent>(message.Clone(), to, routing, priority);
    const CMessageEvent* const posted = event.get();
    return CProcessLink::Post(std::move(event)) ? posted : nullptr;
}

CMessageEvent::CMessageEvent(std::unique_ptr<CMessage> message, CMessenger* to, Routing routing,
                             std::int8_t priority)
    : CProcessEvent(priority), fMessage(std::move(message)), fTarget(to), fRouting(routing)
{
    if (fMessage != nullptr)
        fMessage->fFlags |= CMessage::kMessage_Posted;
}

bool CMessageEvent::IsAlive() const
{
    return fMessage != nullptr && (fRouting != Routing::kMessenger || fTarget != nullptr);
}

void CMessageEvent::MessengerGone(CMessenger* messenger)
{
    if (fTarget == messenger)
        fTarget = nullptr;
    if (fMessage != nullptr && fMessage->fSource == messenger)
        fMessage->fSource = nullptr;
}

void CMessageEvent::Dispatch()
{
    if (!IsAlive())
        return;
    if (CMessenger* const receiver = Receiver())
        receiver->Send(*fMessage);
}

CMessenger* CMessageEvent::Receiver() const
{
    if (fRouting == Routing::kMessenger)
        return fTarget;
    if (fRouting == Routing::kBullseye)
        return CMessenger::GetBullseye();
    CProcessLink* const process = CProcessLink::Current();
    return process != nullptr ? &process->ProcessMessenger() : nullptr;
}

} // namespace Kesto
