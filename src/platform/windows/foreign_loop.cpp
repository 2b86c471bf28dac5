#include "platform/windows/foreign_loop.h"

#include "platform/input/system_timer.h"

namespace Platform {
namespace {

constexpr std::uint32_t kPeriod = 30; // milliseconds

int gLoops = 0;
std::uintptr_t gTimer = 0;

} // namespace

void ForeignLoop::Enter()
{
    if (gLoops++ == 0)
        gTimer = ArmTimer(nullptr, 0, kPeriod);
}

void ForeignLoop::Leave()
{
    if (gLoops > 0 && --gLoops == 0)
        DisarmTimer(nullptr, gTimer);
}

} // namespace Platform
