// CProcessEvent, something that waits in a process's queue for its turn on the thread of the user
// interface.
#pragma once

#include <cstdint>
#include <memory>

namespace Kesto {

class CMessenger;

class CProcessEvent {
public:
    // Created now.
    explicit CProcessEvent(std::int8_t priority);
    CProcessEvent(const CProcessEvent&) = delete;
    CProcessEvent& operator=(const CProcessEvent&) = delete;
    virtual ~CProcessEvent() = default;

    // False: nothing is left to do, and the queue may drop it.
    virtual bool IsAlive() const { return true; }

    // A messenger dies, and whatever the event keeps of it is to be let go. Called under the
    // queue's lock.
    virtual void MessengerGone(CMessenger*) {}

    // Its turn has come. Called once, without a lock; it may post, and may throw.
    virtual void Dispatch() = 0;

    double Time() const { return fTime; }
    std::int8_t Priority() const { return fPriority; }

private:
    friend class CEventList;

    std::unique_ptr<CProcessEvent>
        fNext;    // the one that was posted next with the same priority, while this one waits
    double fTime; // seconds of the tick count at creation
    std::int8_t fPriority;
};

} // namespace Kesto
