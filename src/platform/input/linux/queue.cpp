#include "platform/input/linux/queue.h"

#include "platform/input/message_numbers.h"
#include "platform/system/linux/clock.h"
#include "platform/system/machine.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace Platform {
namespace {

constexpr std::uint32_t kLeastPeriod = 10;
constexpr std::size_t kMostPosted = 10000;

bool Has(MessageRange range, std::uint32_t number)
{
    return range.first <= number && number <= range.last;
}

// The key that a message is about and whether it is down by it; 0 for messages of other kinds.
std::pair<std::size_t, bool> KeyOf(const QueuedMessage& message)
{
    using namespace Number;
    const std::size_t extra = (message.first >> 16) == 1 ? std::size_t(Key::kBackwardButton)
                                                         : std::size_t(Key::kForwardButton);
    switch (message.number) {
    case kKeyDown:
    case kSysKeyDown:
        return {message.first & 0xFF, true};
    case kKeyUp:
    case kSysKeyUp:
        return {message.first & 0xFF, false};
    case kLeftDown:
    case kLeftDouble:
        return {std::size_t(Key::kLeftButton), true};
    case kLeftUp:
        return {std::size_t(Key::kLeftButton), false};
    case kRightDown:
    case kRightDouble:
        return {std::size_t(Key::kRightButton), true};
    case kRightUp:
        return {std::size_t(Key::kRightButton), false};
    case kMiddleDown:
    case kMiddleDouble:
        return {std::size_t(Key::kMiddleButton), true};
    case kMiddleUp:
        return {std::size_t(Key::kMiddleButton), false};
    case kExtraDown:
    case kExtraDouble:
        return {extra, true};
    case kExtraUp:
        return {extra, false};
    default:
        return {0, false};
    }
}

} // namespace

void Queue::Keys::Follow(const QueuedMessage& message)
{
    const auto [key, isDown] = KeyOf(message);
    if (key == 0)
        return;
    if (isDown && !down[key])
        on[key] = !on[key];
    down[key] = isDown;
}

Queue& Queue::Get()
{
    static Queue queue;
    return queue;
}

Queue::Queue() : fBell(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (fBell < 0) {
        std::perror("the message queue has no descriptor left");
        std::abort();
    }
}

Queue::~Queue()
{
    close(fBell);
}

// Once for all that arrives until the next wait.
void Queue::Wake()
{
    if (std::exchange(fIsRung, true))
        return;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(fBell, &one, sizeof one);
}

// Takes back what the bell has rung, or the next wait would end at once.
bool Queue::Quiet()
{
    const std::lock_guard lock(fMutex);
    if (!std::exchange(fIsRung, false))
        return false;
    std::uint64_t rung = 0;
    [[maybe_unused]] const ssize_t got = ::read(fBell, &rung, sizeof rung);
    return std::exchange(fHasRung, false);
}

void Queue::Ring()
{
    const std::lock_guard lock(fMutex);
    fHasRung = true;
    Wake();
}

bool Queue::AddPosted(const QueuedMessage& message)
{
    const std::lock_guard lock(fMutex);
    if (fPosted.size() == kMostPosted || (message.window != nullptr && !IsWindow(message.window)))
        return false;
    fPosted.push_back(message);
    fPosted.back().time = TickCount();
    fPosted.back().x = fCursor.x;
    fPosted.back().y = fCursor.y;
    Wake();
    return true;
}

// Moves that nobody has looked at yet become one.
void Queue::AddInput(const QueuedMessage& message, std::u16string text)
{
    const std::lock_guard lock(fMutex);
    fKeysNow.Follow(message);
    fCursor = {message.x, message.y};
    if (message.number == Number::kMouseMove && !fInput.empty() &&
        fInput.back().message.number == Number::kMouseMove &&
        fInput.back().message.window == message.window)
        fInput.back().message = message;
    else
        fInput.push_back({message, std::move(text)});
    Wake();
}

void Queue::AskToQuit(int code)
{
    const std::lock_guard lock(fMutex);
    fQuit = code;
    Wake();
}

std::optional<int> Queue::TakeQuit()
{
    const std::lock_guard lock(fMutex);
    return std::exchange(fQuit, std::nullopt);
}

bool Queue::IsQuitAsked()
{
    const std::lock_guard lock(fMutex);
    return fQuit.has_value();
}

// Input finds its window when it is looked at, since what came before it may have moved the
// keyboard elsewhere.
std::optional<QueuedMessage> Queue::Take(Peek peek, MessageRange range)
{
    ReadSource();
    std::optional<QueuedMessage> message = TakeUnrouted(peek, range);
    if (message && message->window == nullptr && fRouter != nullptr)
        fRouter(*message);
    return message;
}

void Queue::ReadSource()
{
    if (fIsReading || !fReadSource)
        return;
    struct Reading {
        explicit Reading(bool& is) : flag(is) { flag = true; }
        ~Reading() { flag = false; }
        bool& flag;
    };
    const Reading reading(fIsReading);
    const std::function<void()> read = fReadSource; // which may be taken away meanwhile
    read();
}

std::optional<QueuedMessage> Queue::TakeUnrouted(Peek peek, MessageRange range)
{
    const std::lock_guard lock(fMutex);
    if (auto message = TakePosted(peek, range))
        return message;
    if (auto message = TakeInput(peek, range))
        return message;
    if (auto message = TakePaint(range))
        return message;
    return TakeTimer(peek, range);
}

std::optional<QueuedMessage> Queue::TakePosted(Peek peek, MessageRange range)
{
    const auto found =
        std::find_if(fPosted.begin(), fPosted.end(),
                     [range](const QueuedMessage& message) { return Has(range, message.number); });
    if (found == fPosted.end())
        return std::nullopt;
    const QueuedMessage message = *found;
    if (peek == Peek::kRemove)
        fPosted.erase(found);
    return message;
}

std::optional<QueuedMessage> Queue::TakeInput(Peek peek, MessageRange range)
{
    const auto found = std::find_if(fInput.begin(), fInput.end(), [range](const Input& input) {
        return Has(range, input.message.number);
    });
    if (found == fInput.end())
        return std::nullopt;
    const QueuedMessage message = found->message;
    if (peek == Peek::kRemove) {
        fKeysAtMessage.Follow(message);
        fTaken = std::move(*found);
        fInput.erase(found);
    }
    return message;
}

std::optional<QueuedMessage> Queue::TakePaint(MessageRange range) const
{
    if (fToPaint.empty() || !Has(range, Number::kPaint))
        return std::nullopt;
    return Made(fToPaint.front(), Number::kPaint);
}

std::optional<QueuedMessage> Queue::TakeTimer(Peek peek, MessageRange range)
{
    const auto first =
        std::min_element(fTimers.begin(), fTimers.end(),
                         [](const Timer& a, const Timer& b) { return a.due < b.due; });
    const std::uint64_t now = ClockMilliseconds();
    if (first == fTimers.end() || first->due > now || !Has(range, Number::kTimer))
        return std::nullopt;
    if (peek == Peek::kRemove)
        first->due = std::max(first->due, now - std::min(now, first->period - 1)) + first->period;
    return Made(first->window, Number::kTimer, first->number);
}

QueuedMessage Queue::Made(NativeWindow window, std::uint32_t number, std::uintptr_t first) const
{
    return {window, number, first, 0, TickCount(), fCursor.x, fCursor.y};
}

std::vector<NativeWindow> Queue::Windows()
{
    const std::lock_guard lock(fMutex);
    return fWindows;
}

bool Queue::IsWindow(NativeWindow window) const
{
    return std::find(fWindows.begin(), fWindows.end(), window) != fWindows.end();
}

bool Queue::IsAnythingHere() const
{
    return fQuit || !fPosted.empty() || !fInput.empty() || !fToPaint.empty();
}

std::optional<std::uint64_t> Queue::NextDue() const
{
    std::optional<std::uint64_t> next;
    for (const Timer& timer : fTimers)
        next = std::min(next.value_or(timer.due), timer.due);
    return next;
}

bool Queue::Wait(std::optional<std::uint32_t> milliseconds, WaitFor what)
{
    constexpr std::uint64_t kForever = ~std::uint64_t{0};
    ReadSource();
    std::uint64_t wait = milliseconds ? *milliseconds : kForever;
    std::array<pollfd, 2> descriptors{};
    {
        const std::lock_guard lock(fMutex);
        if (what == WaitFor::kAnything && IsAnythingHere())
            wait = 0;
        else if (const auto due = NextDue()) {
            const std::uint64_t now = ClockMilliseconds();
            const std::uint64_t left = *due > now ? *due - now : 0;
            wait = std::min(wait, left);
        }
        descriptors = {pollfd{fBell, POLLIN, 0}, pollfd{fSource, POLLIN, 0}};
    }
    if (IsClockHeld() && wait != kForever)
        PassHeldTime(std::exchange(wait, 0));
    // In steps of a minute at most, since poll counts in an int; the caller waits again.
    poll(descriptors.data(), descriptors.size(),
         wait != kForever ? static_cast<int>(std::min<std::uint64_t>(wait, 60000)) : -1);
    const bool hasRung = Quiet();
    if (descriptors[1].revents != 0)
        ReadSource();
    return hasRung;
}

std::u16string Queue::TakeTextOf(const QueuedMessage& message)
{
    const std::lock_guard lock(fMutex);
    const QueuedMessage& taken = fTaken.message;
    if (taken.number != message.number || taken.first != message.first ||
        taken.time != message.time)
        return {};
    return std::exchange(fTaken.text, {});
}

void Queue::AddWindow(NativeWindow window)
{
    const std::lock_guard lock(fMutex);
    fWindows.insert(fWindows.begin(), window);
}

void Queue::RemoveWindow(NativeWindow window)
{
    const std::lock_guard lock(fMutex);
    std::erase(fWindows, window);
    std::erase(fToPaint, window);
    std::erase_if(fPosted,
                  [window](const QueuedMessage& message) { return message.window == window; });
    std::erase_if(fInput, [window](const Input& input) { return input.message.window == window; });
    std::erase_if(fTimers, [window](const Timer& timer) { return timer.window == window; });
}

void Queue::BringToFront(NativeWindow window)
{
    const std::lock_guard lock(fMutex);
    if (std::erase(fWindows, window) != 0)
        fWindows.insert(fWindows.begin(), window);
}

bool Queue::HasWindow(NativeWindow window)
{
    const std::lock_guard lock(fMutex);
    return IsWindow(window);
}

void Queue::SetWantsPaint(NativeWindow window, bool wants)
{
    const std::lock_guard lock(fMutex);
    const bool waits = std::find(fToPaint.begin(), fToPaint.end(), window) != fToPaint.end();
    if (!wants)
        std::erase(fToPaint, window);
    else if (!waits && IsWindow(window))
        fToPaint.push_back(window);
    Wake();
}

// A timer of a window replaces the one that has its number.
std::uintptr_t Queue::AddTimer(NativeWindow window, std::uintptr_t number,
                               std::uint32_t milliseconds)
{
    const std::lock_guard lock(fMutex);
    if (window == nullptr)
        number = ++fLastThreadTimer;
    else if (!IsWindow(window))
        return 0;
    std::erase_if(fTimers, [=](const Timer& timer) {
        return timer.window == window && timer.number == number;
    });
    const std::uint64_t period = std::max(milliseconds, kLeastPeriod);
    fTimers.push_back({window, number, period, ClockMilliseconds() + period});
    return number;
}

void Queue::RemoveTimer(NativeWindow window, std::uintptr_t number)
{
    const std::lock_guard lock(fMutex);
    std::erase_if(fTimers, [=](const Timer& timer) {
        return timer.window == window && timer.number == number;
    });
}

bool Queue::IsKeyDown(Key key, KeyMoment moment)
{
    const std::lock_guard lock(fMutex);
    return (moment == KeyMoment::kNow ? fKeysNow : fKeysAtMessage)
        .down[static_cast<std::size_t>(key) & 0xFF];
}

bool Queue::IsKeyOn(Key key)
{
    const std::lock_guard lock(fMutex);
    return fKeysAtMessage.on[static_cast<std::size_t>(key) & 0xFF];
}

PixelPoint Queue::Cursor()
{
    const std::lock_guard lock(fMutex);
    return fCursor;
}

void Queue::SetSource(int descriptor, std::function<void()> read)
{
    const std::lock_guard lock(fMutex);
    fSource = descriptor;
    fReadSource = std::move(read);
    Wake();
}

} // namespace Platform
