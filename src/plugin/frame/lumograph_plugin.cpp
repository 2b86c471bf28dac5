#include "plugin/frame/lumograph_plugin.h"

#include "foundation/base/service.h"
#include "foundation/errors/exceptions.h"
#include "pixels/tiles/virtual_heap.h"
#include "platform/system/machine.h"
#include "plugin/suites/host_properties.h"
#include "view/process/idler.h"
#include "view/process/ui_scale.h"
#include "view/window/window_options.h"

#include <algorithm>

namespace Kesto {
namespace {

constexpr uint64_t kLeastTileMemory = 0x2000000;
constexpr uint64_t kMostTileMemory = 0x20000000;

CLumographPlugin* gCurrentPlugin = nullptr;
CLumographPlugin* gNewestPlugin = nullptr;

// What follows the prefix in the class names of windows, by kind.
const char* ClassFamilyOf(uint32_t kind)
{
    switch (kind) {
    case kWin_Palette:
    case kWin_Toolbar:
        return "FloatingClass";
    case kWin_Popup:
        return "PopupClass";
    case kWin_MDIFrame:
        return "MDIFrameClass";
    case kWin_MDIDocument:
        return "MDIChildClass";
    default:
        return "WindowClass";
    }
}

int32_t BrightnessLevel(intptr_t value)
{
    return value == 0 || value == 1 || value == 3 ? static_cast<int32_t>(value) : 2;
}

UiScaleMode ScaleModeOf(std::optional<intptr_t> highDpi)
{
    if (!highDpi)
        return UiScaleMode{0};
    return *highDpi == 2 ? UiScaleMode{2} : *highDpi == 1 ? UiScaleMode{0} : UiScaleMode{1};
}

std::vector<CFileSpec> AsFileSpecs(const std::vector<std::filesystem::path>& folders)
{
    std::vector<CFileSpec> specs;
    for (const std::filesystem::path& folder : folders) {
        const std::u8string path = folder.u8string();
        specs.emplace_back(CText(std::string(path.begin(), path.end())));
    }
    return specs;
}

} // namespace

CLumographPlugin::CLumographPlugin() : fNextPlugin(gNewestPlugin)
{
    gNewestPlugin = this;
}

CLumographPlugin::~CLumographPlugin()
{
    UnregisterViewInfoHook();
    CLumographPlugin** link = &gNewestPlugin;
    while (*link != this)
        link = &(*link)->fNextPlugin;
    *link = fNextPlugin;
    if (gCurrentPlugin == this)
        gCurrentPlugin = nullptr;
}

CLumographPlugin* CLumographPlugin::FindPlugin(ProjectIndex project)
{
    CLumographPlugin* plugin = gNewestPlugin;
    while (plugin != nullptr && plugin->projectIndex != project)
        plugin = plugin->fNextPlugin;
    return plugin;
}

CText CLumographPlugin::WindowClassName(uint32_t kind)
{
    return CText::Join({WindowClassPrefix(), ClassFamilyOf(kind)});
}

CText CLumographPlugin::ModalClassName()
{
    return CText::Join({WindowClassPrefix(), "ModalClass"});
}

CText CLumographPlugin::DefaultClassName()
{
    return WindowClassName(kWin_Document);
}

CLumographPlugin* CLumographPlugin::CurrentPlugin()
{
    return gCurrentPlugin;
}

void CLumographPlugin::MakeCurrentPlugin()
{
    gCurrentPlugin = this;
    MakeCurrent();
}

void CLumographPlugin::RememberCall(const HostCall& call)
{
    pluginData = call.data;
    hostRecord = call.record;
    hostSelector = call.selector;
}

void CLumographPlugin::ForgetCall()
{
    RememberCall({0, nullptr, nullptr});
    aboutRecord = nullptr;
}

void CLumographPlugin::UpdateHostProperties(const HostBasicSuite* basicSuite)
{
    if (basicSuite == nullptr || basicSuite->suites == nullptr)
        return;
    fSuites.SetSource(basicSuite);
    const CHostProperties host(fSuites);
    if (const auto value = host.Read(kPropertyUiBrightness))
        uiBrightness = BrightnessLevel(*value);
    if (const auto value = host.Read(kPropertyHighContrast))
        highContrast = *value == 2;
    if (const auto value = host.Read(kPropertyLargeTabs))
        largeTabs = *value == 1;
    if (const auto value = host.Read(kPropertyUiScale))
        uiScale = *value == 0
                      ? 1.0F
                      : static_cast<float>(static_cast<double>(*value) / 100.0); // in percent
}

void CLumographPlugin::SetupHighDPI(const HostBasicSuite* basicSuite)
{
    if (highDpiReady)
        return;
    highDpiReady = true;
    fSuites.SetSource(basicSuite);
    if (AllowsScaleHook())
        SetUiScaleMode(ScaleModeOf(CHostProperties(fSuites).Read(kPropertyHighDpi)));
}

bool CLumographPlugin::SplitMemory(int32_t total, int32_t& first, int32_t& second)
{
    first = total / 2;
    second = total - first;
    return true;
}

int32_t CLumographPlugin::ShareMemory(int32_t budget)
{
    memoryShare = 0;
    int32_t first = 0;
    int32_t second = 0;
    if (!SplitMemory(budget, first, second))
        throw CError(CText("$$$/Kesto/LumographPlugin/Error/NotEnoughMemory=This plugin requires "
                           "more memory than the host can "
                           "currently supply."));
    memoryShare = first;
    return first + second;
}

const HostBasicSuite* CLumographPlugin::GetBasicSuite()
{
    return aboutRecord != nullptr ? aboutRecord->basicSuite : nullptr;
}

const CHostSuites& CLumographPlugin::HostSuites()
{
    if (!fSuites.HasSource())
        fSuites.SetSource(GetBasicSuite());
    return fSuites;
}

bool CLumographPlugin::AreSettingsOff()
{
    return CHostProperties(HostSuites()).Read(kPropertySettingsOff).value_or(0) != 0;
}

bool CLumographPlugin::ReadSettingsData(const CText& keyPath, const CText& valueName,
                                        const CText& fileName, CContainer& out, bool useRegistry)
{
    return !AreSettingsOff() &&
           CProcess::ReadSettingsData(keyPath, valueName, fileName, out, useRegistry);
}

bool CLumographPlugin::WriteSettingsData(const CText& keyPath, const CText& valueName,
                                         const CText& fileName, CContainer& in, bool useRegistry)
{
    return !AreSettingsOff() &&
           CProcess::WriteSettingsData(keyPath, valueName, fileName, in, useRegistry);
}

void CLumographPlugin::PrepareMemory()
{
    OpenTileStore(std::clamp(GetHostMemory() / 2, kLeastTileMemory, kMostTileMemory));
}

void CLumographPlugin::OpenTileStore(uint64_t limit)
{
    CVirtualHeap& heap = *CServiceT<CVirtualHeap>::Get();
    heap.SetBudget(limit);
    if (!heap.IsInitialized())
        heap.InitializeLater(AsFileSpecs(GetScratchFolders()));
}

void CLumographPlugin::RunAbout()
{
    const CProcessScope scope(*this);
    DoAbout();
}

void CLumographPlugin::DoAbout() {}

std::vector<std::filesystem::path> CLumographPlugin::GetScratchFolders()
{
    return {};
}

uint64_t CLumographPlugin::GetHostMemory()
{
    return Platform::PhysicalMemory();
}

bool CLumographPlugin::AllowsScaleHook()
{
    return true;
}

} // namespace Kesto
