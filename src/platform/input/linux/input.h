// How input and windows come to the queue of a Linux process: what a reader of the display calls,
// and a test.
#pragma once

#include "platform/input/message_queue.h"
#include "platform/input/pointer.h"

#include <functional>
#include <string>

namespace Platform {

struct NativeWindowRecord {};

// What a NativeWindow points to. It takes part in the queue for as long as it lives; what waits
// for it then goes.
class MessageReceiver : public NativeWindowRecord {
public:
    MessageReceiver();
    virtual ~MessageReceiver();
    MessageReceiver(const MessageReceiver&) = delete;
    MessageReceiver& operator=(const MessageReceiver&) = delete;

    // A message was dispatched to the window; returns what the number's sender expects.
    virtual std::intptr_t Receive(std::uint32_t number, std::uintptr_t first,
                                  std::intptr_t second) = 0;

    // Whether the window takes a click at this point of the screen.
    virtual bool Covers(PixelPoint) const { return false; }

    NativeWindow Handle() { return this; }

    // Has a paint message come when nothing more urgent waits, again and again until the wish is
    // taken back.
    void SetWantsPaint(bool wants);
};

// Adds an input message as it is, its time and point included; mouse moves that wait already
// become one with it. The keys and the cursor follow at once. `text` is what a key-down types.
// Called from any thread.
void InjectInput(const QueuedMessage& message, std::u16string text = {});

// Gives a pen's pointer number the samples of its next message, oldest first; none: there is no
// such pen.
void InjectPen(std::uint32_t pointer, std::vector<PenSample> samples);

// Whenever the queue is looked into it calls `read`, which injects what it finds and doesn't wait
// for more; while the queue blocks it also waits for the descriptor to become readable. One source
// at a time; -1 for none.
void SetInputSource(int descriptor, std::function<void()> read);

// Finds the window for input that was injected without one, and fills in what depends on it. Called
// each time such a message is looked at.
using InputRouter = void (*)(QueuedMessage& message);
void SetInputRouter(InputRouter router);

} // namespace Platform
