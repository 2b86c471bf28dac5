// From the selectors of a file format to the handlers of the plug-in.
#include "plugin/frame/dispatch.h"

#include "plugin/format/plugin_registry.h"

#include <iterator>

namespace Kesto {
namespace {

// What the host passed to the entry.
struct FormatCall {
    int16_t selector;
    void* record;
    intptr_t* data;

    HostFormatRecord* FormatRecord() const { return static_cast<HostFormatRecord*>(record); }
};

enum class Object : uint8_t {
    None,            // the selector means nothing here
    Acquire,         // get it or make it
    AcquireForAbout, // the same, but the record is of another kind
    AcquireResident, // the same, and it stays until the host unloads the module
    Find             // without an object there is nothing to do
};

enum class Release : uint8_t { Never, OnFailure, Always, Unloading };

using FormatHandler = int16_t (*)(CLumographFormat&, const FormatCall&);

template <auto Operation>
int16_t Handle(CLumographFormat& plugin, const FormatCall& call)
{
    return (plugin.*Operation)(call.FormatRecord(), call.data);
}

int16_t HandleAbout(CLumographFormat& plugin, const FormatCall& call)
{
    return plugin.HandleAbout(static_cast<const HostAboutRecord*>(call.record), call.data);
}

int16_t HandleForwarded(CLumographFormat& plugin, const FormatCall& call)
{
    return plugin.HandleForwarded(call.selector, call.FormatRecord(), call.data);
}

int16_t MakeResident(CLumographFormat& plugin, const FormatCall&)
{
    plugin.keepAlive = true;
    return kHostNoError;
}

int16_t EndResidence(CLumographFormat& plugin, const FormatCall& call)
{
    plugin.RememberCall(call.record, call.data, kFormatUnload);
    plugin.keepAlive = false;
    return kHostNoError;
}

struct Row {
    Object object;
    FormatHandler handler;
    Release release;
};

constexpr Row kUnused{Object::None, nullptr, Release::Never};
constexpr Row kForwarded{Object::Acquire, HandleForwarded, Release::Always};

template <auto Operation>
constexpr Row kOpens{Object::Acquire, Handle<Operation>, Release::OnFailure};
template <auto Operation>
constexpr Row kContinues{Object::Find, Handle<Operation>, Release::Never};
template <auto Operation>
constexpr Row kFinishes{Object::Find, Handle<Operation>, Release::Always};
template <auto Operation>
constexpr Row kStandsAlone{Object::Acquire, Handle<Operation>, Release::Always};
template <auto Operation>
constexpr Row kOpensAgain{Object::Find, Handle<Operation>, Release::OnFailure};

using Format = CLumographFormat;

// By selector.
constexpr Row kRows[] = {
    {Object::AcquireForAbout, HandleAbout, Release::Always}, // 0
    kOpens<&Format::HandleReadPrepare>,
    kOpens<&Format::HandleReadStart>,
    kContinues<&Format::HandleReadContinue>,
    kFinishes<&Format::HandleReadFinish>,
    kOpens<&Format::HandleOptionsPrepare>, // 5
    kOpens<&Format::HandleOptionsStart>,
    kContinues<&Format::HandleOptionsContinue>,
    kFinishes<&Format::HandleOptionsFinish>,
    kOpens<&Format::HandleEstimatePrepare>,
    kOpens<&Format::HandleEstimateStart>, // 10
    kContinues<&Format::HandleEstimateContinue>,
    kFinishes<&Format::HandleEstimateFinish>,
    kOpens<&Format::HandleWritePrepare>,
    kOpens<&Format::HandleWriteStart>,
    kContinues<&Format::HandleWriteContinue>, // 15
    kFinishes<&Format::HandleWriteFinish>,
    kStandsAlone<&Format::HandleFilterFile>,
    kUnused,
    kUnused,
    kStandsAlone<&Format::HandleExtension20>, // 20
    kStandsAlone<&Format::HandleExtension21>,
    kStandsAlone<&Format::HandleExtension22>,
    kStandsAlone<&Format::HandleExtension23>,
    {Object::AcquireResident, MakeResident, Release::Never},
    {Object::Acquire, EndResidence, Release::Unloading}, // 25
    kStandsAlone<&Format::HandleExtension26>,
    kForwarded,
    kForwarded,
    kForwarded,
    kForwarded, // 30
    kForwarded,
    kForwarded,
    kForwarded,
    kStandsAlone<&Format::HandleExtension34>,
    kOpensAgain<&Format::HandleExtraReadStart>, // 35
    kContinues<&Format::HandleExtraReadContinue>,
    kContinues<&Format::HandleExtraReadFinish>,
    kOpensAgain<&Format::HandleExtraWriteStart>,
    kContinues<&Format::HandleExtraWriteContinue>,
    kContinues<&Format::HandleExtraWriteFinish>, // 40
};
static_assert(std::size(kRows) == kFormatSelectorCount);

CLumographFormat* GetObject(const Row& row, const FormatCall& call, ProjectIndex index)
{
    switch (row.object) {
    case Object::Acquire:
        return &AcquireFormatPlugin(index, false, call.FormatRecord(), call.data);
    case Object::AcquireForAbout:
        return &AcquireFormatPlugin(index, false, nullptr, call.data);
    case Object::AcquireResident:
        return &AcquireFormatPlugin(index, true, call.FormatRecord(), call.data);
    case Object::Find:
        return FindFormatPlugin(index);
    case Object::None:
        break;
    }
    return nullptr;
}

int16_t Serve(const Row& row, const FormatCall& call, ProjectIndex index)
{
    int16_t result = kHostNoError;
    if (CLumographFormat* const plugin = GetObject(row, call, index))
        result = row.handler(*plugin, call);
    const bool released = row.release == Release::Always || row.release == Release::Unloading ||
                          (row.release == Release::OnFailure && result != kHostNoError);
    if (released)
        ReleaseFormatPlugin(index, result, row.release == Release::Unloading);
    return result;
}

} // namespace

void DispatchFormat(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index)
{
    const auto known = static_cast<uint16_t>(selector); // a selector below 0 is a large one
    if (known >= std::size(kRows))
        return;
    try {
        *result = Serve(kRows[known], {selector, record, data}, index);
    } catch (...) {
        PluginRegistry::Get().Erase(index);
        *result = kHostFailed;
    }
}

} // namespace Kesto
