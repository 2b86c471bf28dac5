#include "platform/windows/foreign_loop.h"

#include "platform/input/stopped_exception.h"

#include <windows.h>

namespace Platform {
namespace {

constexpr UINT kPeriod = 30; // milliseconds

void (*gTurn)() = nullptr;
int gLoops = 0;
UINT_PTR gTimer = 0;

// Whoever dispatches the timer's message calls this.
void CALLBACK TakeTurn(HWND, UINT, UINT_PTR, DWORD)
{
    WithExceptionsStopped([] {
        if (gTurn != nullptr && gLoops > 0)
            gTurn();
    });
}

} // namespace

void SetForeignTurn(void (*turn)())
{
    gTurn = turn;
}

void ForeignLoop::Enter()
{
    if (gLoops++ == 0)
        gTimer = SetTimer(nullptr, 0, kPeriod, TakeTurn);
}

void ForeignLoop::Leave()
{
    if (gLoops > 0 && --gLoops == 0)
        KillTimer(nullptr, gTimer);
}

} // namespace Platform
