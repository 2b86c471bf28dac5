#include "filter.h"

#include "glow.h"
#include "glow_dialog.h"

#include "dialogs/preview/preview_globals.h"
#include "plugin/frame/host_settings.h"

namespace SoftGlow {
namespace {

constexpr int32_t kTile = 512; // pixels on a side that are changed at once

HostRect16 Grown(const HostRect16& rect, int32_t reach, int32_t width, int32_t height)
{
    return {static_cast<int16_t>(std::max(rect.top - reach, 0)),
            static_cast<int16_t>(std::max(rect.left - reach, 0)),
            static_cast<int16_t>(std::min(rect.bottom + reach, height)),
            static_cast<int16_t>(std::min(rect.right + reach, width))};
}

} // namespace

void Filter::DoPluginMain(int16_t selector, HostFilterRecord*, intptr_t*, int16_t* result)
{
    if (selector == kFilterParameters)
        *result = AskUser();
    else if (selector == kFilterStart)
        *result = RunFilterTask();
}

int16_t Filter::AskUser()
{
    const Project::PreviewSession preview(GetFilterRecord());
    const bool accepted = RunDialog();
    fDialog = nullptr;
    return accepted ? kHostNoError : kHostUserCanceled;
}

void Filter::GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName)
{
    keyPath = "Software^LSidecar Examples^LSoft Glow";
    fileName = "Soft Glow Prefs.lgp";
}

std::unique_ptr<Project::PSettings> Filter::CreateSettings()
{
    return std::make_unique<Settings>();
}

std::unique_ptr<Project::PSettings>& Filter::CurrentSettings()
{
    return GetPrefsBag().project;
}

Project::PSettingsDialog* Filter::CurrentDialog()
{
    return fDialog;
}

std::unique_ptr<Kesto::CPluginDialog> Filter::GetDialog()
{
    std::unique_ptr<Dialog> dialog = LoadGlowDialog(*this);
    fDialog = dialog.get();
    return dialog;
}

void Filter::FilterDocument()
{
    const Settings settings = ReadSettings();
    const HostRect16 target = GetFilterRecord()->targetRect;
    for (int32_t top = target.top; top < target.bottom; top += kTile) {
        const int32_t bottom = std::min<int32_t>(top + kTile, target.bottom);
        for (int32_t left = target.left; left < target.right; left += kTile) {
            const int32_t right = std::min<int32_t>(left + kTile, target.right);
            FilterTile(settings, {static_cast<int16_t>(top), static_cast<int16_t>(left),
                                  static_cast<int16_t>(bottom), static_cast<int16_t>(right)});
        }
        ReportProgress(bottom - target.top, target.bottom - target.top);
    }
}

// What the user left, with what the host sets in place of it.
Settings Filter::ReadSettings()
{
    Settings settings = GlowSettings();
    const Kesto::CHostSettings host(HostSuites());
    host.Read("radius", settings.radius, 1, kMostRadius);
    host.Read("amount", settings.amount, 0, 100);
    host.Read("mode", settings.mode, kModeNames);
    return settings;
}

void Filter::FilterTile(const Settings& settings, const HostRect16& tile)
{
    HostFilterRecord& record = *GetFilterRecord();
    const HostRect16 source =
        Grown(tile, Reach(settings), record.documentWidth, record.documentHeight);
    record.sourceBlockRect = source;
    record.resultBlockRect = tile;
    record.sourceFirstPlane = record.resultFirstPlane = 0;
    record.sourceLastPlane = record.resultLastPlane = static_cast<int16_t>(record.filterPlanes - 1);
    FetchBlocks();
    Glow(settings, record.depth, record.filterPlanes, record.inputColorPlanes,
         {static_cast<const uint8_t*>(record.sourceBlock), record.sourceStride,
          source.right - source.left, source.bottom - source.top},
         tile.left - source.left, tile.top - source.top,
         {static_cast<uint8_t*>(record.resultBlock), record.resultStride, tile.right - tile.left,
          tile.bottom - tile.top});
}

} // namespace SoftGlow
