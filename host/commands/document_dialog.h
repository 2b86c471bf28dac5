// How the commands that run a module over a picture have it ask: a person, or a robot in his place.
#pragma once

#include "commands/dialog_options.h"
#include "suites/settings.h"

#include <functional>
#include <optional>

namespace Host {

// Runs a command with the user that the options give it, null for a person. Returns its exit
// status, or that for a script that can't be read.
int RunWithUser(const DialogOptions& options, const std::function<int(DialogUser*)>& run);

// Whether the module isn't to ask: the settings are given, or nobody is there. Throws Failure for a
// robot that would have nothing to do.
bool IsSilent(const ServedSettings::Pairs& settings, const DialogUser* user);

// Calls `ask`. Returns the exit status where that is the end; throws Failure for a dialog that was
// cancelled, and what `ask` throws.
std::optional<int> AskWith(const std::function<void()>& ask, const DialogOptions& options,
                           DialogUser* user);

// Has a run of a module ask, unless it is silent.
template <class Run>
std::optional<int> Ask(Run& run, bool isSilent, const DialogOptions& options, DialogUser* user)
{
    return isSilent ? std::nullopt : AskWith([&run] { run.AskUser(); }, options, user);
}

} // namespace Host
