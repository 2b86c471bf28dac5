#include "platform/input/win32/turn_window.h"

#include "platform/input/stopped_exception.h"
#include "platform/system/win32/this_module.h"

#include <atomic>
#include <memory>
#include <set>

namespace Platform {
namespace {

constexpr const wchar_t* kClassName = L"Kesto_TurnClass";

constexpr UINT kRing = WM_APP;

void (*gReceiver)(std::uintptr_t timer) = nullptr;
std::atomic<bool> gHasRung = false; // and the message is still in the queue

LRESULT CALLBACK TakeTurn(HWND window, UINT number, WPARAM first, LPARAM second)
{
    if (number == kRing)
        gHasRung = false;
    else if (number != WM_TIMER)
        return DefWindowProcW(window, number, first, second);
    WithExceptionsStopped([first] {
        if (gReceiver != nullptr)
            gReceiver(first);
    });
    return 0;
}

// The class must be gone before this code is.
class TurnWindow {
public:
    TurnWindow()
    {
        WNDCLASSW kind{};
        kind.lpfnWndProc = TakeTurn;
        kind.hInstance = ThisModule();
        kind.lpszClassName = kClassName;
        gHasRung = false;
        if (RegisterClassW(&kind) != 0)
            fHandle = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      ThisModule(), nullptr);
    }
    ~TurnWindow()
    {
        if (fHandle != nullptr)
            DestroyWindow(fHandle);
        UnregisterClassW(kClassName, ThisModule());
    }
    TurnWindow(const TurnWindow&) = delete;
    TurnWindow& operator=(const TurnWindow&) = delete;

    HWND Handle() const { return fHandle; }

private:
    HWND fHandle = nullptr;
};

struct ThreadTimers {
    std::unique_ptr<TurnWindow> window;
    std::set<std::uintptr_t> numbers;
    std::uintptr_t last = 0;
    int holders = 0;

    HWND Window()
    {
        if (window == nullptr)
            window = std::make_unique<TurnWindow>();
        return window->Handle();
    }
    void EndUnused()
    {
        if (numbers.empty() && holders == 0)
            window.reset();
    }
};

ThreadTimers& Timers()
{
    thread_local ThreadTimers timers;
    return timers;
}

} // namespace

void SetTurnReceiver(void (*receiver)(std::uintptr_t timer))
{
    gReceiver = receiver;
}

std::uintptr_t ArmThreadTimer(std::uint32_t milliseconds)
{
    ThreadTimers& timers = Timers();
    const HWND window = timers.Window();
    const std::uintptr_t number = ++timers.last;
    if (window != nullptr && SetTimer(window, number, milliseconds, nullptr) != 0) {
        timers.numbers.insert(number);
        return number;
    }
    timers.EndUnused();
    return 0;
}

void DisarmThreadTimer(std::uintptr_t number)
{
    ThreadTimers& timers = Timers();
    if (timers.numbers.erase(number) == 0)
        return;
    KillTimer(timers.window->Handle(), number);
    timers.EndUnused();
}

bool IsTurnWindow(HWND window)
{
    const ThreadTimers& timers = Timers();
    return window != nullptr && timers.window != nullptr && timers.window->Handle() == window;
}

HWND HoldTurnWindow()
{
    ++Timers().holders;
    return Timers().Window();
}

void LetTurnWindowGo()
{
    --Timers().holders;
    Timers().EndUnused();
}

void RingTurnWindow(HWND window)
{
    if (!gHasRung.exchange(true) && PostMessageW(window, kRing, 0, 0) == 0)
        gHasRung = false;
}

bool TakeRing(const MSG& message)
{
    if (message.message != kRing || !IsTurnWindow(message.hwnd))
        return false;
    MSG taken{};
    PeekMessageW(&taken, message.hwnd, kRing, kRing, PM_REMOVE);
    gHasRung = false;
    return true;
}

} // namespace Platform
