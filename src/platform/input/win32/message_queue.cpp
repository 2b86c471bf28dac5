#include "platform/input/message_queue.h"

#include "platform/input/stopped_exception.h"
#include "platform/input/system_timer.h"
#include "platform/input/win32/turn_window.h"
#include "platform/system/win32/handles.h"

#include <utility>
#include <windows.h>

namespace Platform {
namespace {

// The system delivers a request to quit as a message, whatever range is asked for. It is taken out
// wherever it is met.
thread_local std::optional<int> gQuit;

// A bell has rung whose message was met while nobody waited.
thread_local bool gHasRung = false;

QueuedMessage FromSystem(const MSG& message)
{
    const HWND window = IsTurnWindow(message.hwnd) ? nullptr : message.hwnd;
    return {Window(window), message.message, message.wParam, message.lParam,
            message.time,   message.pt.x,    message.pt.y};
}

MSG ToSystem(const QueuedMessage& message)
{
    MSG system{};
    system.hwnd = Handle(message.window);
    system.message = message.number;
    system.wParam = message.first;
    system.lParam = message.second;
    system.time = message.time;
    system.pt = {message.x, message.y};
    return system;
}

bool PeekSystem(MSG& message, MessageRange range, UINT flags)
{
    const bool any = range.first == kAnyMessage.first && range.last == kAnyMessage.last;
    return PeekMessageW(&message, nullptr, any ? 0 : range.first, any ? 0 : range.last, flags) != 0;
}

} // namespace

std::optional<QueuedMessage> PeekQueue(Peek peek, MessageRange range)
{
    MSG message{};
    while (PeekSystem(message, range, peek == Peek::kRemove ? PM_REMOVE : PM_NOREMOVE)) {
        if (TakeRing(message)) {
            gHasRung = true;
            continue;
        }
        if (message.message != WM_QUIT)
            return FromSystem(message);
        gQuit = static_cast<int>(message.wParam);
        if (peek == Peek::kLeave)
            PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    }
    return std::nullopt;
}

std::optional<QueuedMessage> AwaitMessage()
{
    MSG message{};
    if (gQuit || std::exchange(gHasRung, false))
        return std::nullopt;
    if (GetMessageW(&message, nullptr, 0, 0) > 0)
        return TakeRing(message) ? std::nullopt : std::optional(FromSystem(message));
    gQuit = static_cast<int>(message.wParam);
    return std::nullopt;
}

void WaitForMessage(std::uint32_t milliseconds)
{
    if (!gQuit && !std::exchange(gHasRung, false))
        MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

void WaitForArrival(std::uint32_t milliseconds)
{
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, 0);
}

void TranslateKeyMessage(const QueuedMessage& message)
{
    const MSG system = ToSystem(message);
    TranslateMessage(&system);
}

std::intptr_t DispatchToWindow(const QueuedMessage& message)
{
    const MSG system = ToSystem(message);
    const std::intptr_t answer = DispatchMessageW(&system);
    ThrowStopped();
    return answer;
}

bool PostToQueue(NativeWindow window, std::uint32_t number, std::uintptr_t first,
                 std::intptr_t second)
{
    return PostMessageW(Handle(window), number, first, second) != 0;
}

QueueBell::QueueBell() : fWindow(Window(HoldTurnWindow())) {}

QueueBell::~QueueBell()
{
    LetTurnWindowGo();
}

void QueueBell::Ring()
{
    RingTurnWindow(Handle(fWindow));
}

void RequestQuit(int code)
{
    PostQuitMessage(code);
}

// It may still lie in the queue when nobody has looked there.
std::optional<int> TakeQuitRequest()
{
    MSG message{};
    if (!gQuit && PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0)
        gQuit = static_cast<int>(message.wParam);
    return std::exchange(gQuit, std::nullopt);
}

bool TranslateFrameKeys(NativeWindow client, const QueuedMessage& message)
{
    MSG system = ToSystem(message);
    const bool taken = TranslateMDISysAccel(Handle(client), &system) != 0;
    ThrowStopped();
    return taken;
}

bool TranslateCommandKeys(NativeWindow window, void* table, const QueuedMessage& message)
{
    MSG system = ToSystem(message);
    const bool taken =
        TranslateAcceleratorW(Handle(window), static_cast<HACCEL>(table), &system) != 0;
    ThrowStopped();
    return taken;
}

std::uintptr_t ArmTimer(NativeWindow window, std::uintptr_t number, std::uint32_t milliseconds)
{
    if (window == nullptr)
        return ArmThreadTimer(milliseconds);
    return SetTimer(Handle(window), number, milliseconds, nullptr) != 0 ? number : 0;
}

void DisarmTimer(NativeWindow window, std::uintptr_t number)
{
    if (window == nullptr)
        DisarmThreadTimer(number);
    else
        KillTimer(Handle(window), number);
}

} // namespace Platform
