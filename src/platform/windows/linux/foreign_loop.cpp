#include "platform/windows/linux/foreign_turn.h"

#include "platform/windows/foreign_loop.h"

namespace Platform {
namespace {

void (*gTurn)(std::uintptr_t timer) = nullptr;

}

void SetForeignTurn(void (*turn)(std::uintptr_t timer))
{
    gTurn = turn;
}

// The only loops that aren't the program's are those of this folder, which call this whenever a
// timer comes due.
void TakeForeignTurn()
{
    if (gTurn != nullptr)
        gTurn(0);
}

} // namespace Platform
