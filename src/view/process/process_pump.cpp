// The pump of messages and events, in the order in which each turn asks for them.
#include "foundation/alerts/reporter.h"
#include "foundation/base/service.h"
#include "platform/input/message_numbers.h"
#include "platform/input/pointer.h"
#include "platform/system/machine.h"
#include "view/input/mouse_history.h"
#include "view/messages/message_ids.h"
#include "view/messages/messenger_watch.h"
#include "view/process/desktop.h"
#include "view/process/idler.h"
#include "view/process/process.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace Kesto {
namespace {

using namespace Platform::Number;
using Platform::Peek;
using Platform::QueuedMessage;

double Now()
{
    return Platform::TickCount() / 1000.0;
}

// What counts of an event when its turn is decided. The event itself may be gone by then.
struct Turn {
    std::int8_t priority;
    double time;

    // Posted events overtake a message by priority or by age; those below 0 wait until there is
    // none.
    bool ComesBefore(const std::optional<QueuedMessage>& pending) const
    {
        return priority > 0 || !pending || (priority == 0 && IsAsOldAs(*pending));
    }

    // The clock of both starts over every few weeks.
    bool IsAsOldAs(const QueuedMessage& message) const
    {
        const auto milliseconds = static_cast<std::uint32_t>(std::llround(time * 1000.0));
        return static_cast<std::int32_t>(milliseconds - message.time) <= 0;
    }
};

// Presses and double presses of the five buttons, one bit for each message from kLeftDown or its
// like over a frame.
constexpr std::uint32_t kPresses = 0x156D;

bool IsPress(std::uint32_t number)
{
    constexpr std::uint32_t kOverFrame = kFrameMouseFirst + (kLeftDown - kMouseFirst);
    constexpr std::uint32_t kCount = kExtraDouble - kLeftDown + 1;
    const auto isOneFrom = [number](std::uint32_t first) {
        return number - first < kCount && ((kPresses >> (number - first)) & 1) != 0;
    };
    return isOneFrom(kLeftDown) || isOneFrom(kOverFrame);
}

bool IsQuiet(std::uint32_t number)
{
    return number == kTimer || number == kPaint;
}

// Windows of the toolkit note what the pen tells them.
bool IsOfToolkit(Platform::NativeWindow native)
{
    const CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    const CDesktopWindow* const window = desktop != nullptr ? desktop->WindowOf(native) : nullptr;
    return window != nullptr && window->NativeHandle() == native;
}

// Letters and digits have themselves for key codes.
std::uint32_t CharacterOf(std::uint32_t keyCode)
{
    const bool isLetterOrDigit =
        (keyCode >= '0' && keyCode <= '9') || (keyCode >= 'A' && keyCode <= 'Z');
    return isLetterOrDigit ? keyCode : 0;
}

} // namespace

// What decides the turn is copied from the event: the mouse's path may run code that deletes it.
bool CProcess::GetNextEvent(std::uint32_t flags)
{
    const bool mayRest = std::exchange(fMayRest, false);
    std::optional<Turn> turn;
    if (const CProcessEvent* const top = TopEvent())
        turn = Turn{top->Priority(), top->Time()};
    const std::optional<QueuedMessage> pending = Platform::PeekQueue(Peek::kLeave);
    FollowMouse(pending, flags);
    if (turn && turn->ComesBefore(pending)) {
        DispatchTopEvent();
        return true;
    }
    if (const std::optional<QueuedMessage> message = Fetch(flags, mayRest)) {
        if (Deliver(*message, flags))
            return true;
    } else
        TakeQuitRequest();
    RunIdle(flags);
    return false;
}

void CProcess::FollowMouse(const std::optional<QueuedMessage>& pending, std::uint32_t flags)
{
    CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    if (desktop == nullptr)
        return;
    if ((flags & kEvent_NoMouse) != 0)
        desktop->ResetMouse();
    else if (!pending)
        desktop->MouseMoved(CMouseEvent::AtCursor());
    else if ((fProcessFlags & kTracksMouse) != 0)
        desktop->MouseMoved(CMouseEvent::Of(*pending));
}

void CProcess::SetMouseTracking(bool on)
{
    fProcessFlags = on ? fProcessFlags | kTracksMouse : fProcessFlags & ~kTracksMouse;
}

// Stops the process's timer for a wait. What was known of the host may be wrong after it.
class CProcess::CRest {
public:
    explicit CRest(CProcess& process) : fProcess(process) { process.fIdleTimer.Stop(); }
    ~CRest()
    {
        fProcess.fIsHostActive.reset();
        try {
            fProcess.fIdleTimer.Start();
        } catch (const std::bad_alloc&) { // it starts after the next wait
        }
    }
    CRest(const CRest&) = delete;
    CRest& operator=(const CRest&) = delete;

private:
    CProcess& fProcess;
};

// Not while the mouse is over a window where only asking tells that it has left.
bool CProcess::CanRest() const
{
    const CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    return Platform::TellsWhenMouseLeaves() || desktop == nullptr || !desktop->HasMouse();
}

// With idlers the wait ends when the first of them is due.
std::optional<QueuedMessage> CProcess::Fetch(std::uint32_t flags, bool mayRest)
{
    const bool isWanted = mayRest && std::exchange(fWantsTurn, false);
    if (isWanted || (flags & kEvent_Poll) != 0)
        return Platform::PeekQueue(Peek::kRemove);
    std::optional<CRest> rest;
    if (mayRest && CanRest())
        rest.emplace(*this);
    const double wait = (flags & kEvent_NoIdle) != 0 ? -1.0 : CIdler::TimeToNext(Now());
    if (wait < 0.0)
        return Platform::AwaitMessage();
    constexpr double kLongest = 60000.0;
    if (wait > 0.0)
        Platform::WaitForMessage(
            static_cast<std::uint32_t>(std::min(std::ceil(wait * 1000.0), kLongest)));
    return Platform::PeekQueue(Peek::kRemove);
}

// Whoever is asked earlier may eat what the later ones would see: popups before key commands, those
// before the menu bar, and the window last.
bool CProcess::Deliver(QueuedMessage message, std::uint32_t flags)
{
    CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    if ((flags & kEvent_NoMouse) == 0 && desktop != nullptr)
        desktop->MouseMoved(CMouseEvent::Of(message));
    if (message.number == kPenMoved && !IsOfToolkit(message.window))
        NotePen(message);
    if (!PreTranslateMessage(message))
        return true;
    const Platform::NativeWindow client = GetMDIClient();
    if (client != nullptr && Platform::TranslateFrameKeys(client, message))
        return true;
    Platform::NativeWindow window = message.window;
    void* const table = GetAccelerators(window);
    if (table != nullptr && Platform::TranslateCommandKeys(window, table, message))
        return true;
    return PostTranslateMessage(message) || TranslateAndDispatch(message);
}

// True unless the message is of a kind that comes when all is quiet.
bool CProcess::TranslateAndDispatch(const QueuedMessage& message)
{
    Platform::TranslateKeyMessage(message);
    fMessage = message;
    if (message.number != kTimer || !CTimer::FireSystemTimer(message, Now()))
        Platform::DispatchToWindow(message);
    return !IsQuiet(message.number);
}

bool CProcess::PreTranslateMessage(QueuedMessage& message)
{
    CDesktop* const desktop = IsPress(message.number) ? CServiceT<CDesktop>::Get(false) : nullptr;
    return desktop == nullptr || !desktop->ClickAway({message.x, message.y});
}

bool CProcess::PostTranslateMessage(QueuedMessage& message)
{
    if (message.number != kKeyDown && message.number != kSysKeyDown)
        return false;
    CMenuBar* const bar = GetMenuBar();
    if (bar == nullptr)
        return false;
    bar->Update();
    const auto keyCode = static_cast<std::uint32_t>(message.first);
    CKeyboardMessage key(this, message.number == kKeyDown ? kMessage_KeyDown : kMessage_SysKeyDown,
                         keyCode, CharacterOf(keyCode));
    return bar->Send(key);
}

Platform::NativeWindow CProcess::GetMDIClient()
{
    return nullptr;
}

void* CProcess::GetAccelerators(Platform::NativeWindow& /*window*/)
{
    return nullptr;
}

bool CProcess::IsOfPen(std::uint32_t number)
{
    return number == kPenMoved || number == kPenDown;
}

// A pen that hovers reports the pressure 0, which is no pressure at all rather than a light one.
void CProcess::NotePen(const QueuedMessage& message)
{
    const auto pointer = static_cast<std::uint32_t>(message.first & 0xFFFF);
    const std::optional<Platform::PenSample> pen = Platform::ReadPen(pointer);
    if (!pen)
        return;
    const float pressure = static_cast<float>(pen->pressure) * fPenScale;
    fPressure = pen->pressure == 0 ? kNoPressure : std::clamp(pressure, -1.0F, 1.0F);
    if (!CMouseHistory::Get().IsOn())
        return;
    for (const Platform::PenSample& sample : Platform::ReadPenHistory(pointer)) {
        CMouseEvent event = CMouseEvent::Of(message);
        event.fPoint = {sample.x, sample.y};
        event.fTime = sample.time / 1000.0;
        CMouseHistory::Get().Record(event);
    }
}

// What runs innermost is asked to be done, and with it all above it; the runs around it ask the
// process. The request stays known until the host gets it.
void CProcess::TakeQuitRequest()
{
    const std::optional<int> code = Platform::TakeQuitRequest();
    if (!code)
        return;
    fQuit = code;
    fAsksToQuit = true;
    CExecutable* const running = CExecutable::Current();
    (running != nullptr ? *running : *this).SetDone(true);
}

void CProcess::ReturnQuitRequest()
{
    fAsksToQuit = false;
    if (const std::optional<int> code = std::exchange(fQuit, std::nullopt))
        Platform::RequestQuit(*code);
}

void CProcess::RunIdle(std::uint32_t flags)
{
    if ((flags & kEvent_NoIdle) == 0)
        CIdler::RunIdlers(Now());
    CTimer::RunTimers(Now());
}

// Events that are posted by these ones wait for the next turn, so that the turn ends.
void CProcess::RunForeignTurn(std::uintptr_t timer)
{
    CProcess* const process = Current();
    if (process == nullptr)
        return;
    const double start = Now();
    const CMessengerWatch watch(process);
    const auto hasEvent = [&] {
        const CProcessEvent* const top = watch.IsGone() ? nullptr : process->TopEvent();
        return top != nullptr && top->Time() <= start;
    };
    while (hasEvent())
        Reported([process] { process->DispatchTopEvent(); });
    Reported([] { CIdler::RunIdlers(Now()); });
    Reported([timer] {
        if (timer == 0)
            CTimer::RunTimers(Now(), CTimer::Whose::kThread);
        else
            CTimer::FireSystemTimer({nullptr, kTimer, timer}, Now());
    });
}

} // namespace Kesto
