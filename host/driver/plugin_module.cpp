#include "driver/plugin_module.h"

#include "failure.h"

#include <string>
#include <string_view>

namespace Host {
namespace {

std::string_view MajorOf(std::string_view version)
{
    return version.substr(0, version.find('.'));
}

// A module without a kit's version is its author's own matter.
void RequireKitOfOurMajorVersion(const ModuleLibrary& library)
{
    const auto bytes = library.ResourceBytes(kHostKitVersionType, kHostKitVersionName);
    const std::string kit(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (!kit.empty() && MajorOf(kit) != MajorOf(SIDECAR_VERSION))
        throw Failure("the module was made with version " + kit +
                          " of the kit, and this host is version " SIDECAR_VERSION,
                      "Build the module with a kit of this host's major version.");
}

} // namespace

PluginModule::PluginModule(const std::filesystem::path& path, PluginKind kind)
    : fLibrary(path),
      fProperties(ParsePropertyList(
          fLibrary.ResourceBytes(kHostPropertyListType, kHostPropertyListName), kind)),
      fEntry(fLibrary.FindFunction<HostEntry>(fProperties.entry.c_str()))
{
    RequireKitOfOurMajorVersion(fLibrary);
    if (!fEntry)
        throw Failure("the module has no function " + fProperties.entry +
                          ", though its property list names it",
                      "The module's author should check its export list.");
}

int16_t PluginModule::Call(int16_t selector, void* record, intptr_t& data) const
{
    int16_t result = kHostNoError;
    fEntry(selector, record, &data, &result);
    return result;
}

} // namespace Host
