#include "view/messages/process_link.h"

#include <utility>

namespace Kesto {

bool CProcessLink::Post(std::unique_ptr<CProcessEvent> event)
{
    return WithCurrentLink([&event](CProcessLink* process) {
        if (process != nullptr)
            process->PostEvent(std::move(event));
        return process != nullptr;
    });
}

} // namespace Kesto
