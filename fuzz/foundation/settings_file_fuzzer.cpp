// Loads any bytes as a settings file. What loads without an error is saved and must load again as
// the same.
#include "foundation/errors/exceptions.h"
#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/settings_file.h"
#include "foundation/streams/memory_container.h"

#include <cstdlib>
#include <cstring>

namespace {

bool Load(Kesto::PluginSettings& settings, Kesto::CContainer& file)
{
    try {
        Kesto::SettingsFileLoad(settings, file);
        return true;
    } catch (const Kesto::CError&) {
        return false;
    }
}

// By bits, since a number in the file may be none.
bool SameBits(const Kesto::WindowState& a, const Kesto::WindowState& b)
{
    bool same = true;
    Kesto::VisitWindowStateFields(a, [&](const auto& field, const char*) {
        const auto offset =
            reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&a);
        same = same &&
               std::memcmp(&field, reinterpret_cast<const char*>(&b) + offset, sizeof field) == 0;
    });
    return same;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CMemoryContainer file;
    file.Write(data, size);
    Kesto::PluginSettings settings;
    if (!Load(settings, file))
        return 0;
    Kesto::CMemoryContainer saved;
    saved.SetSwapped(file.IsSwapped());
    Kesto::SettingsFileSave(settings, saved);
    Kesto::PluginSettings again;
    if (!Load(again, saved) || !SameBits(settings.window, again.window))
        std::abort();
    return 0;
}
