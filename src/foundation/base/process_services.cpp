#include "foundation/base/process_services.h"

#include <atomic>
#include <thread>

namespace Kesto {
namespace {

class CNoProcess final : public CProcessServices {};

std::atomic<CProcessServices*> gCurrent = nullptr;

} // namespace

CProcessServices& CProcessServices::Current()
{
    static CNoProcess none;
    CProcessServices* const current = gCurrent.load(std::memory_order_acquire);
    return current != nullptr ? *current : none;
}

CProcessServices* CProcessServices::SetCurrent(CProcessServices* services)
{
    return gCurrent.exchange(services, std::memory_order_acq_rel);
}

bool CProcessServices::TranslateKey(CText&)
{
    return false;
}

bool CProcessServices::UsesOwnStringsOnly()
{
    return false;
}

Platform::NativeWindow CProcessServices::AlertParent()
{
    return nullptr;
}

bool CProcessServices::IsMainThread()
{
    static const std::thread::id first = std::this_thread::get_id();
    return std::this_thread::get_id() == first;
}

bool CProcessServices::PostDebugReport(const char*, const char*, std::uint32_t, bool)
{
    return false;
}

} // namespace Kesto
