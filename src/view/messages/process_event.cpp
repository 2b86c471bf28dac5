#include "view/messages/process_event.h"

#include "platform/system/machine.h"

namespace Kesto {

CProcessEvent::CProcessEvent(std::int8_t priority)
    : fTime(Platform::TickCount() / 1000.0), fPriority(priority)
{
}

} // namespace Kesto
