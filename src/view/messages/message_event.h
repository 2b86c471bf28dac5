// CMessageEvent, a message that is posted: it waits in the process's queue and is sent from there.
#pragma once

#include "view/messages/message.h"
#include "view/messages/process_event.h"

namespace Kesto {

class CMessageEvent : public CProcessEvent {
public:
    enum class Routing : std::uint8_t {
        kMessenger = 0, // to the messenger that was named
        kProcess = 1,   // to the process messenger
        kBullseye = 2,  // to whatever has the keyboard when its turn comes
    };

    // Queues a clone of `message` with the current process and returns the event, which the queue
    // owns: a name, not to be looked into, since it may be deleted already. Returns null and queues
    // nothing for kMessenger with a null `to`, and without a process. May be called from any
    // thread.
    static const CMessageEvent* Post(const CMessage& message, CMessenger* to,
                                     Routing routing = Routing::kMessenger,
                                     std::int8_t priority = 0);

    CMessageEvent(std::unique_ptr<CMessage> message, CMessenger* to, Routing routing,
                  std::int8_t priority);

    // False without a message, and for kMessenger once the target is gone.
    bool IsAlive() const override;

    // Clears the target, and the source of the message.
    void MessengerGone(CMessenger* messenger) override;

    // Sends the message, unless it is dead or there is nobody to send it to.
    void Dispatch() override;

private:
    CMessenger* Receiver() const;

    std::unique_ptr<CMessage> fMessage;
    CMessenger* fTarget;
    Routing fRouting;
};

} // namespace Kesto
