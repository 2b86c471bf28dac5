// Posting and dispatching events while a thousand wait, against a std::priority_queue of closures
// that keeps the same order. Ours allocates an event for each post and locks twice; the peer does
// neither.
#include "rounds.h"
#include "view/process/process.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <queue>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kEvents = 1000000;
constexpr std::size_t kWaiting = 1000;

// What an event does: folds its number into a hash that tells the order.
struct Order {
    std::uint64_t hash = 0;

    void Note(std::uint64_t number) { hash = (hash ^ number) * 0x100000001B3U; }
};

class NoteEvent final : public Kesto::CProcessEvent {
public:
    NoteEvent(std::int8_t priority, Order& order, std::uint64_t number)
        : CProcessEvent(priority), fOrder(order), fNumber(number)
    {
    }
    void Dispatch() override { fOrder.Note(fNumber); }

private:
    Order& fOrder;
    std::uint64_t fNumber;
};

class Closures {
public:
    void Post(std::int8_t priority, std::function<void()> call)
    {
        fQueue.push({priority, fNext++, std::move(call)});
    }
    void Dispatch()
    {
        // A priority_queue lets nobody move out of it but so.
        const std::function<void()> call = std::move(const_cast<Closure&>(fQueue.top()).call);
        fQueue.pop();
        call();
    }

private:
    struct Closure {
        std::int8_t priority;
        std::uint64_t number;
        std::function<void()> call;

        bool operator<(const Closure& other) const
        {
            return std::tuple(priority, other.number) < std::tuple(other.priority, number);
        }
    };

    std::priority_queue<Closure> fQueue;
    std::uint64_t fNext = 0;
};

// Priorities in an order that looks like chance: one of `count` about 0.
std::int8_t PriorityOf(std::uint64_t number, std::uint64_t count)
{
    return static_cast<std::int8_t>(((number * 0x9E3779B97F4A7C15U) >> 40) % count) -
           static_cast<std::int8_t>(count / 2);
}

template <class Post, class Dispatch>
void RunAll(Post post, Dispatch dispatch)
{
    for (std::size_t i = 0; i < kEvents; ++i) {
        post(i);
        if (i >= kWaiting)
            dispatch();
    }
    for (std::size_t i = 0; i < kWaiting; ++i)
        dispatch();
}

void Measure(std::uint64_t priorities)
{
    Kesto::CProcess process;
    Order ours;
    Order theirs;
    const auto events = [&] {
        ours = {};
        RunAll(
            [&](std::uint64_t i) {
                process.PostEvent(std::make_unique<NoteEvent>(PriorityOf(i, priorities), ours, i));
            },
            [&] { process.DispatchTopEvent(); });
    };
    const auto closures = [&] {
        Closures queue;
        theirs = {};
        RunAll(
            [&](std::uint64_t i) {
                queue.Post(PriorityOf(i, priorities), [order = &theirs, i] { order->Note(i); });
            },
            [&] { queue.Dispatch(); });
    };
    const auto seconds = Bench::MedianSeconds(9, {{events}, {closures}});
    std::printf("An event posted and dispatched, %llu priorities: %.1f ns; speed against a "
                "priority_queue %.2f; order %s\n",
                static_cast<unsigned long long>(priorities), seconds[0] / kEvents * 1e9,
                seconds[1] / seconds[0], ours.hash == theirs.hash ? "the same" : "DIFFERENT");
}

} // namespace

int main()
{
    for (const std::uint64_t priorities : {1, 3, 100})
        Measure(priorities);
}
