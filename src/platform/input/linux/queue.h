// The one message queue of a Linux process, with the clocks, keys and cursor that go with it.
//
// Posted messages, input, windows that want to be painted and timers wait in lists of their own,
// and Take looks through them in that order. Input comes from whoever injects it: a reader of the
// display, or a test. The lock is what an operating system has around its queues: what is said to
// be for any thread takes it, and no caller's code runs while it is held.
#pragma once

#include "platform/input/keyboard.h"
#include "platform/input/linux/input.h"
#include "platform/input/message_queue.h"
#include "platform/input/pointer.h"

#include <array>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

class Queue {
public:
    static Queue& Get();

    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    // From any thread. Input may come with the text that a key types.
    bool AddPosted(const QueuedMessage& message);
    void AddInput(const QueuedMessage& message, std::u16string text);
    void AskToQuit(int code);
    void Ring();

    std::optional<QueuedMessage> Take(Peek peek, MessageRange range);
    std::optional<int> TakeQuit();
    bool IsQuitAsked();

    // Blocks until there may be something, or something that wasn't there at the last wait; at most
    // until the next timer is due or `milliseconds` have passed. True: a bell has rung.
    enum class WaitFor { kAnything, kArrival };
    bool Wait(std::optional<std::uint32_t> milliseconds, WaitFor what = WaitFor::kAnything);

    // The text of a key message that was taken last, once.
    std::u16string TakeTextOf(const QueuedMessage& message);

    void AddWindow(NativeWindow window);
    // Drops all that waits for the window.
    void RemoveWindow(NativeWindow window);
    bool HasWindow(NativeWindow window);
    std::vector<NativeWindow> Windows(); // front to back
    void BringToFront(NativeWindow window);
    void SetWantsPaint(NativeWindow window, bool wants);

    std::uintptr_t AddTimer(NativeWindow window, std::uintptr_t number, std::uint32_t milliseconds);
    void RemoveTimer(NativeWindow window, std::uintptr_t number);

    bool IsKeyDown(Key key, KeyMoment moment);
    bool IsKeyOn(Key key);
    PixelPoint Cursor();

    void SetSource(int descriptor, std::function<void()> read);
    void SetRouter(InputRouter router) { fRouter = router; }

private:
    struct Input {
        QueuedMessage message;
        std::u16string text;
    };
    struct Timer {
        NativeWindow window;
        std::uintptr_t number;
        std::uint64_t period; // milliseconds
        std::uint64_t due;    // of the clock that TickCount shows the low bits of
    };
    struct Keys {
        std::array<bool, 256> down{};
        std::array<bool, 256> on{};

        void Follow(const QueuedMessage& message);
    };

    Queue();
    ~Queue();

    void Wake();
    bool Quiet();
    void ReadSource();
    std::optional<QueuedMessage> TakeUnrouted(Peek peek, MessageRange range);
    std::optional<QueuedMessage> TakePosted(Peek peek, MessageRange range);
    std::optional<QueuedMessage> TakeInput(Peek peek, MessageRange range);
    std::optional<QueuedMessage> TakePaint(MessageRange range) const;
    std::optional<QueuedMessage> TakeTimer(Peek peek, MessageRange range);
    bool IsWindow(NativeWindow window) const;
    bool IsAnythingHere() const;
    std::optional<std::uint64_t> NextDue() const;
    QueuedMessage Made(NativeWindow window, std::uint32_t number, std::uintptr_t first = 0) const;

    std::mutex fMutex;
    std::deque<QueuedMessage> fPosted;
    std::deque<Input> fInput;
    std::vector<NativeWindow> fToPaint; // in the order of the wishes
    std::vector<Timer> fTimers;
    std::uintptr_t fLastThreadTimer = 0;
    std::vector<NativeWindow> fWindows; // front to back
    std::optional<int> fQuit;
    Input fTaken; // the key message that was taken last
    Keys fKeysNow;
    Keys fKeysAtMessage;
    PixelPoint fCursor;
    int fBell; // an eventfd: rung whenever something arrives
    bool fIsRung = false;
    bool fHasRung = false; // for somebody's wish, not for what is in the queue
    int fSource = -1;      // more to wait for, as the display's connection
    std::function<void()> fReadSource;
    bool fIsReading = false;
    InputRouter fRouter = nullptr;
};

} // namespace Platform
