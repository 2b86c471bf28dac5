#include "plugin/format/plugin_registry.h"

#include "plugin/frame/process_setup.h"
#include "view/process/clean_up_list.h"

#include <stdexcept>

namespace Kesto {
namespace {

CLumographFormat* gCurrentFormat = nullptr;

CLumographFormat& MakeCurrent(CLumographFormat& plugin)
{
    gCurrentFormat = &plugin;
    plugin.MakeCurrentPlugin();
    return plugin;
}

void Load(CLumographFormat& plugin, bool keepAlive, const HostCall& call)
{
    if (!keepAlive) {
        plugin.DoLoad();
        return;
    }
    plugin.RememberCall({kFormatLoad, call.record, call.data});
    plugin.DoLoad();
    plugin.hostRecord = nullptr;
    plugin.pluginData = nullptr;
}

} // namespace

PluginRegistry& PluginRegistry::Get()
{
    static PluginRegistry registry;
    return registry;
}

CLumographFormat* PluginRegistry::Find(ProjectIndex index) const
{
    const auto found = fPlugins.find(index);
    return found != fPlugins.end() ? found->second.get() : nullptr;
}

CLumographFormat& PluginRegistry::Insert(ProjectIndex index,
                                         std::unique_ptr<CLumographFormat> plugin)
{
    plugin->projectIndex = index;
    return *(fPlugins[index] = std::move(plugin));
}

void PluginRegistry::Erase(ProjectIndex index)
{
    if (auto node = fPlugins.extract(index)) {
        if (gCurrentFormat == node.mapped().get())
            gCurrentFormat = nullptr;
        node.mapped().reset();
    }
    RunCleanUpList();
}

CLumographFormat* CurrentFormatPlugin()
{
    return gCurrentFormat;
}

CLumographFormat* FindFormatPlugin(ProjectIndex index)
{
    CLumographFormat* const plugin = PluginRegistry::Get().Find(index);
    return plugin != nullptr ? &MakeCurrent(*plugin) : nullptr;
}

CLumographFormat& AcquireFormatPlugin(const FormatProject& project, bool keepAlive,
                                      const HostCall& call)
{
    const auto* const record = static_cast<const HostFormatRecord*>(call.record);
    if (CLumographFormat* const plugin = FindFormatPlugin(project.index)) {
        // The object may have been kept from a session before: what the host has changed since is
        // read anew, and the records of that call are gone.
        if (record != nullptr)
            plugin->UpdateHostProperties(record->basicSuite);
        plugin->ForgetCall();
        return *plugin;
    }
    if (PluginRegistry::Get().IsEmpty())
        SetUpProcess();
    std::unique_ptr<CLumographFormat> made = project.factory(project.index);
    if (made == nullptr)
        throw std::logic_error("Warning! (plugin != nullptr)");
    if (record != nullptr) {
        // Only now: the scaling of dialogs must not change while the object lives.
        made->SetupHighDPI(record->basicSuite);
        made->UpdateHostProperties(record->basicSuite);
    }
    CLumographFormat& plugin = PluginRegistry::Get().Insert(project.index, std::move(made));
    Load(plugin, keepAlive, call);
    return MakeCurrent(plugin);
}

void ReleaseFormatPlugin(ProjectIndex index, int16_t& result, bool unloading)
{
    CLumographFormat* const plugin = FindFormatPlugin(index);
    if (plugin == nullptr || plugin->keepAlive)
        return;
    const int16_t code = plugin->HandleUnload(unloading);
    if (result == kHostNoError)
        result = code;
    PluginRegistry::Get().Erase(index);
}

} // namespace Kesto
