#include "driver/plugin_module.h"

#include "failure.h"

namespace Host {

PluginModule::PluginModule(const std::filesystem::path& path, PluginKind kind)
    : fLibrary(path),
      fProperties(ParsePropertyList(
          fLibrary.ResourceBytes(kHostPropertyListType, kHostPropertyListName), kind)),
      fEntry(fLibrary.FindFunction<HostEntry>(fProperties.entry.c_str()))
{
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
