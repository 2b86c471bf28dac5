#include "console.h"

#include <atomic>

#include <windows.h>

namespace Host {
namespace {

std::atomic<bool> gInterrupted = false;

// Called on a thread of the system's. The first interrupt is taken; the next one goes to the
// system, which ends us.
BOOL WINAPI OnInterrupt(DWORD event)
{
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT && event != CTRL_CLOSE_EVENT)
        return FALSE;
    return gInterrupted.exchange(true) ? FALSE : TRUE;
}

HANDLE MessageStream()
{
    return GetStdHandle(STD_ERROR_HANDLE);
}

} // namespace

bool MessagesGoToTerminal()
{
    DWORD mode = 0;
    return GetConsoleMode(MessageStream(), &mode) != 0;
}

bool HasDisplay()
{
    return GetSystemMetrics(SM_CMONITORS) > 0;
}

int TerminalWidth()
{
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (!GetConsoleScreenBufferInfo(MessageStream(), &info))
        return 80;
    return info.srWindow.Right - info.srWindow.Left + 1;
}

void CatchInterrupts()
{
    SetConsoleCtrlHandler(OnInterrupt, TRUE);
}

bool Interrupted()
{
    return gInterrupted.load(std::memory_order_relaxed);
}

} // namespace Host
