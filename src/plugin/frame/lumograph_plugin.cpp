#include "plugin/frame/lumograph_plugin.h"

#include "foundation/base/service.h"
#include "pixels/tiles/virtual_heap.h"
#include "platform/system/machine.h"
#include "plugin/suites/host_properties.h"
#include "view/process/ui_scale.h"

#include <algorithm>

namespace Kesto {
namespace {

constexpr uint64_t kLeastTileMemory = 0x2000000;
constexpr uint64_t kMostTileMemory = 0x20000000;

CLumographPlugin* gCurrentPlugin = nullptr;

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

CLumographPlugin::~CLumographPlugin()
{
    if (gCurrentPlugin == this)
        gCurrentPlugin = nullptr;
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

void CLumographPlugin::RememberCall(void* record, intptr_t* data, int16_t selector)
{
    pluginData = data;
    hostRecord = record;
    hostSelector = selector;
}

void CLumographPlugin::ForgetCall()
{
    RememberCall(nullptr, nullptr, 0);
    aboutRecord = nullptr;
}

void CLumographPlugin::UpdateHostProperties(const HostBasicSuite* basicSuite)
{
    const CHostProperties host(basicSuite);
    if (!host.IsAvailable())
        return;
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
    if (AllowsScaleHook())
        SetUiScaleMode(ScaleModeOf(CHostProperties(basicSuite).Read(kPropertyHighDpi)));
}

bool CLumographPlugin::SplitMemory(int32_t total, int32_t& first, int32_t& second)
{
    first = total / 2;
    second = total - first;
    return true;
}

void CLumographPlugin::PrepareMemory()
{
    CVirtualHeap& heap = *CServiceT<CVirtualHeap>::Get();
    heap.SetBudget(std::clamp(GetHostMemory() / 2, kLeastTileMemory, kMostTileMemory));
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
