#include "commands/document_dialog.h"

#include "console.h"
#include "failure.h"
#include "messages.h"

#include <cstdio>

namespace Host {
namespace {

constexpr int kMisused = 2;

// What the robot met; nothing when there is none, or when it played to the end.
std::optional<PlayOutcome> TroubleOf(DialogUser* user)
{
    if (user == nullptr)
        return std::nullopt;
    const PlayOutcome& outcome = user->Finish();
    return outcome.status == PlayOutcome::kPlayed ? std::nullopt : std::optional(outcome);
}

[[noreturn]] void ThrowForDialog(const Failure& failure)
{
    if (failure.Code() == kHostUserCanceled && !Interrupted())
        throw Failure("the dialog was cancelled: " + ResultLine(kHostUserCanceled),
                      "Nothing was written.");
    throw failure;
}

} // namespace

int RunWithUser(const DialogOptions& options, const std::function<int(DialogUser*)>& run)
{
    std::optional<DialogUser> user;
    try {
        UseOptions(options, options.WantsRobot());
        if (options.WantsRobot())
            user.emplace(ScriptOf(options), options.messages);
    } catch (const ScriptError& error) {
        std::fprintf(stderr, "lumohost: %s\n", error.what());
        return kMisused;
    }
    return run(user ? &*user : nullptr);
}

bool IsSilent(const ServedSettings::Pairs& settings, const DialogUser* user)
{
    if (!settings.empty() && user != nullptr)
        throw Failure("with --set no dialog is shown that a robot could use",
                      "Leave out --set, or --play, --describe and --photograph.");
    return !settings.empty() || (user == nullptr && !IsPersonThere());
}

std::optional<int> AskWith(const std::function<void()>& ask, const DialogOptions& options,
                           DialogUser* user)
{
    std::optional<Failure> failure;
    try {
        ask();
    } catch (const Failure& caught) {
        failure = caught;
    }
    // What the script found comes first: a failure of the run may be no more than its consequence.
    if (const std::optional<PlayOutcome> trouble = TroubleOf(user)) {
        std::fprintf(stderr, "lumohost: %s\n", trouble->words.c_str());
        return trouble->status;
    }
    // Who only describes or photographs a dialog has cancelled it, which is no failure then.
    if (failure && options.OnlyLooks() && failure->Code() == kHostUserCanceled)
        return 0;
    if (failure)
        ThrowForDialog(*failure);
    return std::nullopt;
}

} // namespace Host
