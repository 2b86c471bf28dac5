// What messengers ask of the process above them. The process class derives from this, and no other
// does.
//
// Post keeps the current process from being taken away for as long as it takes to queue the event,
// so that a process that ends on its own thread doesn't end meanwhile.
#pragma once

#include "foundation/base/process_services.h"
#include "view/messages/process_event.h"

#include <memory>

namespace Kesto {

class CProcessLink : public CProcessServices {
public:
    // The current process, or null. For the thread of the user interface.
    static CProcessLink* Current() { return CurrentLink(); }

    // Queues an event with the current process. False where there is none: the event is
    // destroyed. May be called from any thread.
    static bool Post(std::unique_ptr<CProcessEvent> event);

    // The process as the messenger at the top of all chains.
    virtual CMessenger& ProcessMessenger() = 0;

    // Queues an event; null is ignored. May be called from any thread.
    virtual void PostEvent(std::unique_ptr<CProcessEvent> event) = 0;

    // Has every queued event let go of a messenger, with the other processes that live too, and
    // drops those that are dead then.
    virtual void ForgetMessenger(CMessenger* messenger) = 0;

    CProcessLink* AsLink() override { return this; }

protected:
    ~CProcessLink() = default;
};

} // namespace Kesto
