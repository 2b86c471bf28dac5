#include "suites/ui_hooks.h"

#include "lumograph/results.h"

#include <algorithm>
#include <new>
#include <utility>

namespace Host {
namespace {

std::vector<ViewInfoHook> gHooks;
std::function<bool(HostInputEvent&)> gTurn;

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

uint8_t TakeTurn(HostInputEvent* event)
{
    return event != nullptr && gTurn && gTurn(*event) ? 1 : 0;
}

constexpr HostUIHooksSuite4 kUIHooksSuite = {
    kHostUIHooksTableVersion, 3, {}, Register, Unregister, TakeTurn};

} // namespace

const HostUIHooksSuite4* UIHooksSuite()
{
    return &kUIHooksSuite;
}

const std::vector<ViewInfoHook>& ViewInfoHooks()
{
    return gHooks;
}

void SetTurn(std::function<bool(HostInputEvent&)> turn)
{
    gTurn = std::move(turn);
}

} // namespace Host
