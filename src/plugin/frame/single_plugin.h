// The one object of a group of projects of which only one can be at work: filters, and exports.
#pragma once

#include "plugin/frame/lumograph_plugin.h"
#include "plugin/frame/process_setup.h"
#include "view/process/clean_up_list.h"

#include <memory>
#include <stdexcept>

namespace Kesto {

template <class Plugin>
class CSinglePlugin {
public:
    using Factory = std::unique_ptr<Plugin> (*)(ProjectIndex);

    Plugin* Get() const { return fPlugin.get(); }

    // Makes a new object, with the process set up for it. Throws std::logic_error when the module
    // has no class for it.
    static std::unique_ptr<Plugin> Make(ProjectIndex index, Factory factory)
    {
        SetUpProcess();
        std::unique_ptr<Plugin> plugin = factory(index);
        if (plugin == nullptr)
            throw std::logic_error("Warning! (plugin != nullptr)");
        plugin->projectIndex = index;
        return plugin;
    }

    // The object, made and told the host's properties when there is none.
    Plugin& Acquire(ProjectIndex index, Factory factory, const HostBasicSuite* basicSuite)
    {
        if (fPlugin == nullptr) {
            std::unique_ptr<Plugin> plugin = Make(index, factory);
            plugin->SetupHighDPI(basicSuite);
            plugin->UpdateHostProperties(basicSuite);
            fPlugin = std::move(plugin);
        }
        fPlugin->MakeCurrentPlugin();
        return *fPlugin;
    }

    // Deletes the object, if there is one, and runs the toolkit's clean-up list.
    void End()
    {
        fPlugin.reset();
        RunCleanUpList();
    }

private:
    std::unique_ptr<Plugin> fPlugin;
};

} // namespace Kesto
