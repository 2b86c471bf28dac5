#include "plugin/view_info/view_info_hook.h"

#include "drawing/tools/draw_tools.h"
#include "foundation/base/service.h"
#include "platform/windows/system_window.h"
#include "plugin/frame/lumograph_plugin.h"
#include "plugin/view_info/host_description.h"
#include "plugin/view_info/host_turns.h"
#include "plugin/view_info/window_requests.h"
#include "view/process/desktop.h"
#include "view/process/ui_scale.h"
#include "view/window/window.h"

#include <utility>

namespace Kesto {
namespace {

bool Describe(void* native, CLumographPlugin& plugin, HostDescriptor& out, uint32_t eventKey)
{
    const auto host = CHostDescriptions::Find(plugin.HostSuites());
    if (!host)
        return false;
    host->KeyOf("event");
    if (eventKey != host->KeyOf("getViewInfo"))
        return false;
    out = nullptr;
    const CWindow* const window = FindWindowOf(native);
    if (window == nullptr)
        return false;
    CHostRecord record(*host);
    DescribeWindow(*window, plugin.GetProductName(), record);
    out = record.Release();
    return true;
}

} // namespace

uint8_t ViewInfoCallback(void* window, int32_t projectIndex, HostDescriptor* descriptorOut,
                         uint32_t eventKey)
try {
    CLumographPlugin* const plugin = CLumographPlugin::FindPlugin(ProjectIndex{projectIndex});
    if (plugin == nullptr || descriptorOut == nullptr)
        return 0;
    return Describe(window, *plugin, *descriptorOut, eventKey) ? 1 : 0;
} catch (...) {
    return 0; // the host sees no description
}

bool CLumographPlugin::HasUser()
{
    if (Platform::HasDisplay())
        return true;
    RegisterViewInfoHook(); // before there is a window: the host may refuse
    return fTurns != nullptr;
}

void CLumographPlugin::RegisterViewInfoHook()
{
    if (fHooks != nullptr)
        return;
    const auto* const hooks =
        HostSuites().Find<HostUIHooksSuite4>(kHostUIHooksSuiteName, kHostUIHooksSuiteVersion4);
    if (hooks == nullptr || hooks->count < 3 || hooks->RegisterViewInfo == nullptr)
        return;
    // Made before the host is told, since what follows the registration must not fail.
    std::unique_ptr<CIdler> turns;
    if (hooks->TakeTurn != nullptr)
        turns = std::make_unique<CHostTurns>(
            [hooks](HostInputEvent& event) { return hooks->TakeTurn(&event) != 0; });
    if (hooks->RegisterViewInfo(ViewInfoCallback, kHostViewInfoHook, kHostViewInfoHookVersion,
                                static_cast<int32_t>(projectIndex)) != kHostNoError)
        return;
    fHooks = hooks;
    fTurns = std::move(turns);
}

void CLumographPlugin::UnregisterViewInfoHook()
{
    fTurns.reset();
    if (const HostUIHooksSuite4* const hooks = std::exchange(fHooks, nullptr))
        hooks->UnregisterViewInfo(ViewInfoCallback, kHostViewInfoHook, kHostViewInfoHookVersion,
                                  static_cast<int32_t>(projectIndex));
}

void CLumographPlugin::UseHostLook() const
{
    CDrawTools::Get().SetTheme(highContrast ? CDrawTools::kTheme_System : uiBrightness);
    SetUiScale(double{uiScale});
}

void CLumographPlugin::WindowOpened()
{
    if (!std::exchange(fHasWindows, true))
        UseHostLook();
    RegisterViewInfoHook();
}

void CLumographPlugin::WindowClosed()
{
    const CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    if (desktop != nullptr && desktop->FrontWindow() != nullptr)
        return;
    fHasWindows = false;
    UnregisterViewInfoHook();
}

} // namespace Kesto
