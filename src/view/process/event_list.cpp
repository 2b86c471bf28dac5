#include "view/process/event_list.h"

#include <bit>
#include <utility>

namespace Kesto {
namespace {

std::size_t IndexOf(std::int8_t priority)
{
    return static_cast<std::size_t>(priority + 128);
}

} // namespace

CEventList::~CEventList()
{
    Clear();
}

// One by one, since events that own each other would be destroyed in as many nested calls.
void CEventList::Clear()
{
    while (TakeTop() != nullptr) {
    }
}

void CEventList::Add(std::unique_ptr<CProcessEvent> event)
{
    const std::size_t index = IndexOf(event->Priority());
    Queue& queue = fQueues[index];
    CProcessEvent* const added = event.get();
    (queue.oldest != nullptr ? queue.newest->fNext : queue.oldest) = std::move(event);
    queue.newest = added;
    fFilled[index / kWordBits] |= std::uint64_t(1) << (index % kWordBits);
}

std::size_t CEventList::Highest() const
{
    for (std::size_t word = fFilled.size(); word-- > 0;)
        if (fFilled[word] != 0)
            return word * kWordBits + static_cast<std::size_t>(std::bit_width(fFilled[word])) - 1;
    return kPriorities;
}

CProcessEvent* CEventList::Top() const
{
    const std::size_t index = Highest();
    return index < kPriorities ? fQueues[index].oldest.get() : nullptr;
}

std::unique_ptr<CProcessEvent> CEventList::TakeTop()
{
    const std::size_t index = Highest();
    return index < kPriorities ? TakeOldest(index) : nullptr;
}

std::unique_ptr<CProcessEvent> CEventList::TakeOldest(std::size_t index)
{
    Queue& queue = fQueues[index];
    std::unique_ptr<CProcessEvent> taken = std::move(queue.oldest);
    queue.oldest = std::move(taken->fNext);
    NoteWhetherEmpty(index);
    return taken;
}

void CEventList::NoteWhetherEmpty(std::size_t index)
{
    if (fQueues[index].oldest == nullptr)
        fFilled[index / kWordBits] &= ~(std::uint64_t(1) << (index % kWordBits));
}

// The newest of each queue is found again on the way, since it may be among the dead.
void CEventList::ForgetMessenger(CMessenger* messenger, CEventList& dead)
{
    for (std::size_t index = kPriorities; index-- > 0;) {
        Queue& queue = fQueues[index];
        queue.newest = nullptr;
        for (std::unique_ptr<CProcessEvent>* link = &queue.oldest; *link != nullptr;) {
            CProcessEvent* const event = link->get();
            event->MessengerGone(messenger);
            if (event->IsAlive()) {
                queue.newest = event;
                link = &event->fNext;
            } else {
                std::unique_ptr<CProcessEvent> gone = std::move(*link);
                *link = std::move(gone->fNext);
                dead.Add(std::move(gone));
            }
        }
        NoteWhetherEmpty(index);
    }
}

} // namespace Kesto
