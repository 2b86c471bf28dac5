#include "plugin/format/format_selectors.h"

#include <iterator>

namespace Kesto {
namespace {

using Format = CLumographFormat;
using Object = FormatSelector::Object;
using Release = FormatSelector::Release;

int16_t HandleAbout(Format& plugin, const HostCall& call)
{
    return plugin.HandleAbout(static_cast<const HostAboutRecord*>(call.record), call.data);
}

int16_t HandleFilterFile(Format& plugin, const HostCall& call)
{
    return plugin.HandleFilterFile(static_cast<HostFormatRecord*>(call.record), call.data);
}

int16_t HandleForwarded(Format& plugin, const HostCall& call)
{
    return plugin.HandleForwarded(call.selector, static_cast<HostFormatRecord*>(call.record),
                                  call.data);
}

int16_t MakeResident(Format& plugin, const HostCall&)
{
    plugin.keepAlive = true;
    return kHostNoError;
}

int16_t EndResidence(Format& plugin, const HostCall& call)
{
    plugin.RememberCall(call);
    plugin.keepAlive = false;
    return kHostNoError;
}

constexpr FormatSelector kUnused{Object::None, nullptr, Release::Never};
constexpr FormatSelector kForwarded{Object::Acquire, HandleForwarded, Release::Always};

template <Handler<Format> Handle>
constexpr FormatSelector kOpens{Object::Acquire, Handle, Release::OnFailure};
template <Handler<Format> Handle>
constexpr FormatSelector kContinues{Object::Find, Handle, Release::Never};
template <Handler<Format> Handle>
constexpr FormatSelector kFinishes{Object::Find, Handle, Release::Always};
template <Handler<Format> Handle>
constexpr FormatSelector kStandsAlone{Object::Acquire, Handle, Release::Always};
template <Handler<Format> Handle>
constexpr FormatSelector kOpensAgain{Object::Find, Handle, Release::OnFailure};

// By selector.
constexpr FormatSelector kRows[] = {
    {Object::AcquireForAbout, HandleAbout, Release::Always}, // 0
    kOpens<Prepare<&Format::DoReadPrepare>>,
    kOpens<Start<&Format::DoReadStart>>,
    kContinues<Ask<&Format::DoReadContinue>>,
    kFinishes<Tell<&Format::DoReadFinish>>,
    kOpens<Prepare<&Format::DoOptionsPrepare>>, // 5
    kOpens<Start<&Format::DoOptionsStart>>,
    kContinues<Ask<&Format::DoOptionsContinue>>,
    kFinishes<Tell<&Format::DoOptionsFinish>>,
    kOpens<Prepare<&Format::DoEstimatePrepare>>,
    kOpens<Start<&Format::DoEstimateStart>>, // 10
    kContinues<Ask<&Format::DoEstimateContinue>>,
    kFinishes<Tell<&Format::DoEstimateFinish>>,
    kOpens<Prepare<&Format::DoWritePrepare>>,
    kOpens<Start<&Format::DoWriteStart>>,
    kContinues<Ask<&Format::DoWriteContinue>>, // 15
    kFinishes<Tell<&Format::DoWriteFinish>>,
    kStandsAlone<HandleFilterFile>,
    kUnused,
    kUnused,
    kStandsAlone<Tell<&Format::DoExtension20>>, // 20
    kStandsAlone<Tell<&Format::DoExtension21>>,
    kStandsAlone<Tell<&Format::DoExtension22>>,
    kStandsAlone<Tell<&Format::DoExtension23>>,
    {Object::AcquireResident, MakeResident, Release::Never},
    {Object::Acquire, EndResidence, Release::Unloading}, // 25
    kStandsAlone<Tell<&Format::DoExtension26>>,
    kForwarded,
    kForwarded,
    kForwarded,
    kForwarded, // 30
    kForwarded,
    kForwarded,
    kForwarded,
    kStandsAlone<Tell<&Format::DoExtension34>>,
    kOpensAgain<Ask<&Format::DoExtraReadStart>>, // 35
    kContinues<Ask<&Format::DoExtraReadContinue>>,
    kContinues<Tell<&Format::DoExtraReadFinish>>,
    kOpensAgain<Ask<&Format::DoExtraWriteStart>>,
    kContinues<Ask<&Format::DoExtraWriteContinue>>,
    kContinues<Tell<&Format::DoExtraWriteFinish>>, // 40
};
static_assert(std::size(kRows) == kFormatSelectorCount);

} // namespace

const FormatSelector& FindFormatSelector(int16_t selector)
{
    const auto number = static_cast<uint16_t>(selector); // a selector below 0 is a large one
    return number < std::size(kRows) ? kRows[number] : kUnused;
}

} // namespace Kesto
