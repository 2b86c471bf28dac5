// The queue of messages that the operating system keeps for a thread.
//
// The order of delivery is the same on every system: posted messages by age, then input by age,
// then a paint message for a window that wants one, then a timer that is due. Paints and timers are
// made when they are asked for, so they never pile up. A request to quit is no message here but a
// flag of the queue, and only blocking calls tell of it.
//
// All calls but PostToQueue and a bell's Ring are for the thread that owns the queue.
#pragma once

#include "platform/system/native_window.h"

#include <cstdint>
#include <optional>

namespace Platform {

struct QueuedMessage {
    NativeWindow window = nullptr; // null: for the thread
    std::uint32_t number = 0;
    std::uintptr_t first = 0; // two parameters, whose meaning the number gives
    std::intptr_t second = 0;
    std::uint32_t time = 0; // TickCount of the moment when it was posted or the input happened
    std::int32_t x = 0;     // where the cursor was then, in pixels of the screen
    std::int32_t y = 0;
};

// The numbers from first to last; both ends count.
struct MessageRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0xFFFF;
};
inline constexpr MessageRange kAnyMessage{};

enum class Peek { kLeave, kRemove };

// The next message of a range, or nothing when there is none. A paint message stays in the queue,
// even when it is removed, until its window has been painted.
std::optional<QueuedMessage> PeekQueue(Peek peek, MessageRange range = kAnyMessage);

// Blocks until there is a message and takes it out. Nothing when the thread is asked to quit, and
// when a bell rings.
std::optional<QueuedMessage> AwaitMessage();

// Blocks until there is a message, a request to quit or a bell that rings, at most so many
// milliseconds.
void WaitForMessage(std::uint32_t milliseconds);

// The same, but what was in the queue when it was last looked at doesn't end the wait: for loops
// that look at some ranges only.
void WaitForArrival(std::uint32_t milliseconds);

// Posts the character message that belongs to a key message, if there is one. Other messages are
// left alone.
void TranslateKeyMessage(const QueuedMessage& message);

// Hands the message to its window, if it has one, and returns the window's answer.
std::intptr_t DispatchToWindow(const QueuedMessage& message);

// Posts a message to a window, or to this thread if it has none. To a window it may be called from
// any thread. False: the window is gone or the queue is full.
bool PostToQueue(NativeWindow window, std::uint32_t number, std::uintptr_t first = 0,
                 std::intptr_t second = 0);

// Wakes the thread that has made it.
class QueueBell {
public:
    QueueBell();
    ~QueueBell();
    QueueBell(const QueueBell&) = delete;
    QueueBell& operator=(const QueueBell&) = delete;

    // The call that blocks now returns, or the next one at once; a loop of the system's own gives
    // the program a turn. From any thread.
    void Ring();

private:
    NativeWindow fWindow = nullptr; // that is rung, where one is needed
};

// Asks this thread to quit. The request is kept until it is taken.
void RequestQuit(int code);
std::optional<int> TakeQuitRequest();

// Let the frame of a multiple-document window, or a table of key commands, take a key message.
// True: it was taken.
bool TranslateFrameKeys(NativeWindow client, const QueuedMessage& message);
bool TranslateCommandKeys(NativeWindow window, void* table, const QueuedMessage& message);

} // namespace Platform
