// What messengers ask of the process above them. The process class derives from this and makes
// itself current.
//
// A lock guards the pointer to the current process. Post keeps it for as long as it takes to queue
// the event, so that a process that goes on its own thread doesn't go meanwhile.
#pragma once

#include "view/messages/process_event.h"

#include <memory>

namespace Kesto {

class CProcessLink {
public:
    CProcessLink() = default;
    CProcessLink(const CProcessLink&) = delete;
    CProcessLink& operator=(const CProcessLink&) = delete;

    // The current process, or null. May be called from any thread.
    static CProcessLink* Current();

    // Makes `process` current, which its maker keeps alive; null for none. Returns the former one
    // or null.
    static CProcessLink* SetCurrent(CProcessLink* process);

    // Queues an event with the current process; false, and the event is gone, without one. May be
    // called from any thread.
    static bool Post(std::unique_ptr<CProcessEvent> event);

    // The process as the messenger at the top of all chains.
    virtual CMessenger& ProcessMessenger() = 0;

    // Queues an event; null is ignored. May be called from any thread.
    virtual void PostEvent(std::unique_ptr<CProcessEvent> event) = 0;

    // Has every queued event let go of a messenger, and drops those that are dead then.
    virtual void ForgetMessenger(CMessenger* messenger) = 0;

protected:
    ~CProcessLink() = default;
};

} // namespace Kesto
