#include "foundation/base/process_services.h"

#include <thread>

namespace Kesto {
namespace {

class CNoProcess final : public CProcessServices {};

} // namespace

constinit std::atomic<CProcessServices*> CProcessServices::gCurrent = nullptr;
std::mutex CProcessServices::gMutex;

CProcessServices& CProcessServices::Current()
{
    static CNoProcess none;
    CProcessServices* const current = gCurrent.load(std::memory_order_acquire);
    return current != nullptr ? *current : none;
}

CProcessServices* CProcessServices::SetCurrent(CProcessServices* services)
{
    const std::lock_guard lock(gMutex);
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

bool CProcessServices::HasOwnStringsOnly()
{
    if (!fOwnStringsOnly)
        fOwnStringsOnly = UsesOwnStringsOnly();
    return *fOwnStringsOnly;
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
