// The shapes of the handlers, which all three protocols share: what is done around an operation.
//
// A handler stores the call in the object, runs its operation inside the exception frame, and
// returns the result word: 0 for success, the code of a CLumographError, or 1 for a refusal and for
// every other failure, which the reporter shows.
#pragma once

#include "plugin/frame/exception_frame.h"
#include "plugin/frame/lumograph_plugin.h"

#include <concepts>

namespace Kesto {

template <class Plugin>
using Handler = int16_t (*)(Plugin&, const HostCall&);

// The frame that the shapes below are made from: a working phase with a body that can refuse.
template <std::predicate Body>
int16_t Work(CLumographPlugin& plugin, const HostCall& call, Body body)
{
    plugin.RememberCall(call);
    plugin.flags |= CLumographPlugin::kFlag_Working;
    return RunInFrame([&] { return body() ? int16_t{kHostNoError} : int16_t{kHostFailed}; });
}

template <class Operation>
struct OperationOwner;
template <class Result, class Plugin>
struct OperationOwner<Result (Plugin::*)()> {
    using Type = Plugin;
};
template <auto Operation>
using OwnerOf = typename OperationOwner<decltype(Operation)>::Type;

// Settles the memory bargain, without which the operation isn't run.
template <auto Operation>
int16_t Prepare(OwnerOf<Operation>& plugin, const HostCall& call)
{
    return Work(plugin, call, [&] { return plugin.WithRequiredMemory() && (plugin.*Operation)(); });
}

// Readies the tile store first.
template <auto Operation>
int16_t Start(OwnerOf<Operation>& plugin, const HostCall& call)
{
    return Work(plugin, call, [&] {
        plugin.PrepareMemory();
        return (plugin.*Operation)();
    });
}

// Runs an operation that can refuse.
template <auto Operation>
int16_t Ask(OwnerOf<Operation>& plugin, const HostCall& call)
{
    return Work(plugin, call, [&] { return (plugin.*Operation)(); });
}

// Runs an operation that can't.
template <auto Operation>
int16_t Tell(OwnerOf<Operation>& plugin, const HostCall& call)
{
    return Work(plugin, call, [&] {
        (plugin.*Operation)();
        return true;
    });
}

// Shows the about box. No working phase; the about flag is up while the box is.
int16_t About(CLumographPlugin& plugin, const HostCall& call);

} // namespace Kesto
