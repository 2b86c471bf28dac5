#include "platform/windows/foreign_loop.h"

#include "platform/input/win32/turn_window.h"

namespace Platform {

void SetForeignTurn(void (*turn)(std::uintptr_t timer))
{
    SetTurnReceiver(turn);
}

} // namespace Platform
