#include "view/process_link.h"

#include <atomic>

namespace Kesto {
namespace {

std::atomic<CProcessLink*> gCurrent = nullptr;

}

CProcessLink* CProcessLink::Current()
{
    return gCurrent.load(std::memory_order_acquire);
}

CProcessLink* CProcessLink::SetCurrent(CProcessLink* process)
{
    return gCurrent.exchange(process, std::memory_order_acq_rel);
}

} // namespace Kesto
