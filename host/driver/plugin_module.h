// A loaded module: its property list and its entry.
#pragma once

#include "driver/property_list.h"
#include "lumograph/entry.h"
#include "module_library.h"

namespace Host {

class PluginModule {
public:
    // Loads the module and reads its property list; nothing in it is called yet. Throws Failure,
    // also for a module that was made with a kit of another major version.
    explicit PluginModule(const std::filesystem::path& path, PluginKind kind = PluginKind::kFormat);

    const PropertyList& Properties() const { return fProperties; }

    // Calls the entry and returns the result word.
    int16_t Call(int16_t selector, void* record, intptr_t& data) const;

private:
    ModuleLibrary fLibrary;
    PropertyList fProperties;
    HostEntry fEntry;
};

} // namespace Host
