#include "view/messages/process_link.h"

#include <mutex>
#include <utility>

namespace Kesto {
namespace {

std::mutex gMutex;
CProcessLink* gCurrent = nullptr;

} // namespace

CProcessLink* CProcessLink::Current()
{
    const std::lock_guard lock(gMutex);
    return gCurrent;
}

CProcessLink* CProcessLink::SetCurrent(CProcessLink* process)
{
    const std::lock_guard lock(gMutex);
    return std::exchange(gCurrent, process);
}

bool CProcessLink::Post(std::unique_ptr<CProcessEvent> event)
{
    const std::lock_guard lock(gMutex);
    if (gCurrent == nullptr)
        return false;
    gCurrent->PostEvent(std::move(event));
    return true;
}

} // namespace Kesto
