#include "platform/input/message_queue.h"

#include "platform/input/linux/input.h"
#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/input/system_timer.h"

namespace Platform {

std::optional<QueuedMessage> PeekQueue(Peek peek, MessageRange range)
{
    return Queue::Get().Take(peek, range);
}

std::optional<QueuedMessage> AwaitMessage()
{
    Queue& queue = Queue::Get();
    while (!queue.IsQuitAsked()) {
        if (auto message = queue.Take(Peek::kRemove, kAnyMessage))
            return message;
        if (queue.Wait(std::nullopt))
            return std::nullopt;
    }
    return std::nullopt;
}

void WaitForMessage(std::uint32_t milliseconds)
{
    Queue::Get().Wait(milliseconds);
}

void WaitForArrival(std::uint32_t milliseconds)
{
    Queue::Get().Wait(milliseconds, Queue::WaitFor::kArrival);
}

void TranslateKeyMessage(const QueuedMessage& message)
{
    if (message.number != Number::kKeyDown && message.number != Number::kSysKeyDown)
        return;
    const std::uint32_t number = message.number + (Number::kKeyChar - Number::kKeyDown);
    for (const char16_t unit : Queue::Get().TakeTextOf(message))
        PostToQueue(message.window, number, unit, message.second);
}

// A window that was closed meanwhile gets nothing.
std::intptr_t DispatchToWindow(const QueuedMessage& message)
{
    if (message.window == nullptr || !Queue::Get().HasWindow(message.window))
        return 0;
    const std::intptr_t answer = static_cast<MessageReceiver*>(message.window)
                                     ->Receive(message.number, message.first, message.second);
    ThrowStopped();
    return answer;
}

bool PostToQueue(NativeWindow window, std::uint32_t number, std::uintptr_t first,
                 std::intptr_t second)
{
    return Queue::Get().AddPosted({window, number, first, second, 0, 0, 0});
}

// There is but one queue.
QueueBell::QueueBell() = default;

QueueBell::~QueueBell() = default;

void QueueBell::Ring()
{
    Queue::Get().Ring();
}

void RequestQuit(int code)
{
    Queue::Get().AskToQuit(code);
}

std::optional<int> TakeQuitRequest()
{
    return Queue::Get().TakeQuit();
}

// Frames of many documents and tables of key commands are things of Windows alone.
bool TranslateFrameKeys(NativeWindow, const QueuedMessage&)
{
    return false;
}

bool TranslateCommandKeys(NativeWindow, void*, const QueuedMessage&)
{
    return false;
}

std::uintptr_t ArmTimer(NativeWindow window, std::uintptr_t number, std::uint32_t milliseconds)
{
    return Queue::Get().AddTimer(window, number, milliseconds);
}

void DisarmTimer(NativeWindow window, std::uintptr_t number)
{
    Queue::Get().RemoveTimer(window, number);
}

} // namespace Platform
