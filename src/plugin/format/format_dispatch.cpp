#include "plugin/format/format_dispatch.h"

#include "plugin/format/format_selectors.h"

namespace Kesto {
namespace {

using Object = FormatSelector::Object;
using Release = FormatSelector::Release;

CLumographFormat* GetObject(Object object, const HostCall& call, const FormatProject& project)
{
    const HostCall aboutCall{call.selector, nullptr, call.data};
    switch (object) {
    case Object::Acquire:
        return &AcquireFormatPlugin(project, false, call);
    case Object::AcquireForAbout:
        return &AcquireFormatPlugin(project, false, aboutCall);
    case Object::AcquireResident:
        return &AcquireFormatPlugin(project, true, call);
    case Object::Find:
        return FindFormatPlugin(project.index);
    case Object::None:
        break;
    }
    return nullptr;
}

int16_t Serve(const FormatSelector& selector, const HostCall& call, const FormatProject& project)
{
    int16_t result = kHostNoError;
    if (CLumographFormat* const plugin = GetObject(selector.object, call, project))
        result = selector.handler(*plugin, call);
    const bool released = selector.release == Release::Always ||
                          selector.release == Release::Unloading ||
                          (selector.release == Release::OnFailure && result != kHostNoError);
    if (released)
        ReleaseFormatPlugin(project.index, result, selector.release == Release::Unloading);
    return result;
}

} // namespace

void DispatchFormat(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, FormatFactory factory)
{
    try {
        *result = Serve(FindFormatSelector(selector), {selector, record, data}, {index, factory});
    } catch (...) {
        PluginRegistry::Get().Erase(index);
        *result = kHostFailed;
    }
}

} // namespace Kesto
