#include "suites/ui_hooks.h"

#include "lumograph/results.h"

#include <algorithm>
#include <new>
#include <utility>

namespace Host {
namespace {

std::vector<ViewInfoHook> gHooks;
HostTurn* gTurn = nullptr; // the newest

bool IsViewInfo(HostViewInfoCallback callback, int32_t hook, int32_t version)
{
    return callback != nullptr && hook == kHostViewInfoHook && version == kHostViewInfoHookVersion;
}

int32_t Register(HostViewInfoCallback callback, int32_t hook, int32_t version, int32_t project)
{
    if (!IsViewInfo(callback, hook, version))
        return kHostBadParameter;
    try {
        gHooks.push_back({callback, project});
        return kHostNoError;
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }
}

int32_t Unregister(HostViewInfoCallback callback, int32_t hook, int32_t version, int32_t project)
{
    const auto found = std::ranges::find(gHooks, ViewInfoHook{callback, project});
    if (!IsViewInfo(callback, hook, version) || found == gHooks.end())
        return kHostBadParameter;
    gHooks.erase(found);
    return kHostNoError;
}

} // namespace

struct TurnCalls {
    static bool TakeIn(const HostTurn* turn, HostInputEvent& event)
    {
        return turn != nullptr && turn->fTake(event);
    }

    static uint8_t TakeTurn(HostInputEvent* event)
    {
        return event != nullptr && TakeIn(gTurn, *event) ? 1 : 0;
    }
};

const HostUIHooksSuite4* UIHooksSuite()
{
    static constexpr HostUIHooksSuite4 kSuite = {
        kHostUIHooksTableVersion, 3, {}, Register, Unregister, TurnCalls::TakeTurn};
    return &kSuite;
}

const std::vector<ViewInfoHook>& ViewInfoHooks()
{
    return gHooks;
}

HostTurn::HostTurn(Take take) : fTake(std::move(take)), fOuter(std::exchange(gTurn, this)) {}

HostTurn::~HostTurn()
{
    gTurn = fOuter;
}

bool HostTurn::TakeOuter(HostInputEvent& event) const
{
    return TurnCalls::TakeIn(fOuter, event);
}

} // namespace Host
