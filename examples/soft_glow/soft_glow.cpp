// A filter plug-in: light parts of the picture glow into their surroundings.
#include "glow.h"

#include "plugin/filter/filter.h"
#include "plugin/filter/filter_dispatch.h"
#include "plugin/frame/host_settings.h"

namespace SoftGlow {
namespace {

constexpr Kesto::ProjectIndex kProject{1};
constexpr int32_t kTile = 512; // pixels on a side that are changed at once

HostRect16 Grown(const HostRect16& rect, int32_t reach, int32_t width, int32_t height)
{
    return {static_cast<int16_t>(std::max(rect.top - reach, 0)),
            static_cast<int16_t>(std::max(rect.left - reach, 0)),
            static_cast<int16_t>(std::min(rect.bottom + reach, height)),
            static_cast<int16_t>(std::min(rect.right + reach, width))};
}

class Filter final : public Project::PFilter {
public:
    void DoPluginMain(int16_t selector, HostFilterRecord*, intptr_t*, int16_t* result) override
    {
        if (selector == kFilterStart)
            *result = RunFilterTask();
    }

    void GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName) override
    {
        keyPath = "Software^LSidecar Examples^LSoft Glow";
        fileName = "Soft Glow Prefs.lgp";
    }

    std::unique_ptr<Project::PSettings> CreateSettings() override
    {
        return std::make_unique<Settings>();
    }

    void FilterDocument() override
    {
        const Settings settings = ReadSettings();
        const HostRect16 target = GetFilterRecord()->targetRect;
        for (int32_t top = target.top; top < target.bottom; top += kTile) {
            for (int32_t left = target.left; left < target.right; left += kTile)
                FilterTile(settings,
                           {static_cast<int16_t>(top), static_cast<int16_t>(left),
                            std::min<int16_t>(static_cast<int16_t>(top + kTile), target.bottom),
                            std::min<int16_t>(static_cast<int16_t>(left + kTile), target.right)});
            ReportProgress(std::min<int32_t>(top + kTile, target.bottom) - target.top,
                           target.bottom - target.top);
        }
    }

private:
    // What the user left, with what the host sets in place of it.
    Settings ReadSettings()
    {
        Settings settings = dynamic_cast<const Settings&>(*GetPrefsBag().project);
        const Kesto::CHostSettings host(HostSuites());
        host.Read("radius", settings.radius, 1, kMostRadius);
        host.Read("amount", settings.amount, 0, 100);
        host.Read("mode", settings.mode, kModeNames);
        return settings;
    }

    void FilterTile(const Settings& settings, const HostRect16& tile)
    {
        HostFilterRecord& record = *GetFilterRecord();
        const HostRect16 source =
            Grown(tile, Reach(settings), record.documentWidth, record.documentHeight);
        record.sourceBlockRect = source;
        record.resultBlockRect = tile;
        record.sourceFirstPlane = record.resultFirstPlane = 0;
        record.sourceLastPlane = record.resultLastPlane =
            static_cast<int16_t>(record.filterPlanes - 1);
        FetchBlocks();
        Glow(settings, record.depth, record.filterPlanes, record.inputColorPlanes,
             {static_cast<const uint8_t*>(record.sourceBlock), record.sourceStride,
              source.right - source.left, source.bottom - source.top},
             tile.left - source.left, tile.top - source.top,
             {static_cast<uint8_t*>(record.resultBlock), record.resultStride,
              tile.right - tile.left, tile.bottom - tile.top});
    }
};

} // namespace
} // namespace SoftGlow

extern "C" [[gnu::visibility("default")]] void EntrySoftGlow(int16_t selector, void* record,
                                                             intptr_t* data, int16_t* result)
{
    Kesto::DispatchFilter(selector, record, data, result, SoftGlow::kProject,
                          [](Kesto::ProjectIndex) -> std::unique_ptr<Kesto::CLumographFilter> {
                              return std::make_unique<SoftGlow::Filter>();
                          });
}
