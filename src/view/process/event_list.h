// CEventList, the events that wait in a process's queue, in the order of their turns: higher
// priorities first, and among equal ones the oldest first.
//
// Each of the 256 priorities has a list of its own, linked through the events, and a bit that says
// whether the list has any. So adding and taking cost the same however many wait, and need no
// memory. The owner locks.
#pragma once

#include "view/messages/process_event.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Kesto {

class CEventList {
public:
    CEventList() = default;
    CEventList(const CEventList&) = delete;
    CEventList& operator=(const CEventList&) = delete;
    ~CEventList();

    // Deletes all events, in the order of their turns.
    void Clear();

    void Add(std::unique_ptr<CProcessEvent> event);

    // The event whose turn is next, or null.
    CProcessEvent* Top() const;

    // Takes that event out; null if there is none.
    std::unique_ptr<CProcessEvent> TakeTop();

    // Tells every event, in the order of their turns, that a messenger dies, and moves those that
    // are dead then to `dead`.
    void ForgetMessenger(CMessenger* messenger, CEventList& dead);

private:
    struct Queue {
        std::unique_ptr<CProcessEvent> oldest;
        CProcessEvent* newest = nullptr;
    };
    static constexpr std::size_t kPriorities = 256;
    static constexpr std::size_t kWordBits = 64;

    // The list of the highest priority that has events, or kPriorities.
    std::size_t Highest() const;
    std::unique_ptr<CProcessEvent> TakeOldest(std::size_t index);
    void NoteWhetherEmpty(std::size_t index);

    std::array<Queue, kPriorities> fQueues; // lowest priority first
    std::array<std::uint64_t, kPriorities / kWordBits> fFilled{};
};

} // namespace Kesto
