#include "commands/open_options.h"

#include "console.h"
#include "driver/session.h"
#include "electricimage/frame_walker.h"
#include "failure.h"
#include "messages.h"

#include <cstdio>

namespace Host {
namespace {

constexpr int kMisused = 2;

// Without -o the picture goes to the working folder, and never over something that is there.
std::filesystem::path OutputOf(const OpenOptions& options, const std::filesystem::path& file)
{
    if (!options.output.empty())
        return PathOf(options.output);
    std::filesystem::path output = file.stem();
    output += ".png";
    if (std::filesystem::exists(output))
        throw Failure(TextOf(output) + " is there already",
                      "Name the picture with -o to replace it.");
    return output;
}

// 1 also for what isn't of the format: the module tells about that.
uint32_t FrameCountOf(const std::filesystem::path& file)
try {
    return EIFrameWalker(file).File().frameCount;
} catch (const Failure&) {
    return 1;
}

void TellOfOtherFrames(const std::filesystem::path& file)
{
    const uint32_t count = FrameCountOf(file);
    if (count > 1)
        std::fprintf(stderr,
                     "lumohost: opening frame 1 of the %u in %s; --frame N opens another, --all "
                     "every one\n",
                     count, TextOf(file).c_str());
}

// Who uses the dialog, if anybody but a person does.
std::unique_ptr<DialogUser> MakeUser(const OpenOptions& options)
{
    if (options.frame && !options.dialog.WantsRobot()) {
        auto user =
            std::make_unique<DialogUser>(TypingScript(*options.frame), options.dialog.messages);
        user->EndAtAlerts();
        return user;
    }
    if (!options.dialog.WantsRobot())
        return nullptr;
    return std::make_unique<DialogUser>(ScriptOf(options.dialog), options.dialog.messages);
}

// What became of the dialog, in the place of the bare code that the module gave for it.
[[noreturn]] void ThrowForDialog(const OpenOptions& options, const Failure& failure,
                                 const DialogUser* user)
{
    if (user != nullptr && !user->AlertText().empty())
        throw Failure("can't open " + options.files.front() + ": " + user->AlertText() + " (-128)",
                      "See `lumohost info` for the frames.");
    if (failure.Code() == kHostUserCanceled && !Interrupted() &&
        (user != nullptr ? user->WasAsked() : IsPersonThere()))
        throw Failure("the dialog was cancelled: " + ResultLine(kHostUserCanceled),
                      "Nothing was written.");
    throw failure;
}

void RequireAsked(const OpenOptions& options, const DialogUser& user)
{
    if (user.WasAsked() || (options.frame == 1 && !options.dialog.WantsRobot()))
        return;
    throw Failure(options.frame ? options.files.front() + " has no frame " +
                                      std::to_string(*options.frame) + ", only one"
                                : options.files.front() + " was opened without a dialog",
                  "A file of several frames asks for one.");
}

} // namespace

int OpenOne(const OpenOptions& options, CommonOptions& common)
{
    const std::filesystem::path file = PathOf(options.files.front());
    std::unique_ptr<DialogUser> user;
    try {
        user = MakeUser(options);
    } catch (const ScriptError& error) {
        std::fprintf(stderr, "lumohost: %s\n", error.what());
        return kMisused;
    }
    common.operation.interactive = user != nullptr || IsPersonThere();
    if (!common.operation.interactive)
        TellOfOtherFrames(file);
    const std::filesystem::path output = OutputOf(options, file);
    const std::unique_ptr<PictureSink> sink = CreatePicture(output, options.picture);
    const PluginModule module(common.Module());
    PictureInfo info;
    std::optional<Failure> failure;
    try {
        Session session(module, common.operation);
        info = session.Open(file, *sink);
    } catch (const Failure& caught) {
        failure = caught;
    }
    // Without a dialog the number had nowhere to go, and a script has nothing to say to a failure.
    const bool isPlayed =
        user != nullptr && (user->WasAsked() || (options.dialog.WantsRobot() && !failure));
    const PlayOutcome outcome = isPlayed ? user->Finish() : PlayOutcome{};
    if (outcome.status != PlayOutcome::kPlayed) {
        std::fprintf(stderr, "lumohost: %s\n", outcome.words.c_str());
        return outcome.status;
    }
    if (failure && options.dialog.OnlyLooks() && failure->Code() == kHostUserCanceled)
        return 0;
    if (failure)
        ThrowForDialog(options, *failure, user.get());
    if (user != nullptr)
        RequireAsked(options, *user);
    sink->Finish();
    std::printf("%s: %d x %d, %s\n", TextOf(output).c_str(), info.width, info.height, KindOf(info));
    return 0;
}

} // namespace Host
