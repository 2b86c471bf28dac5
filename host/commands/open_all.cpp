#include "commands/open_options.h"

#include "console.h"
#include "driver/session.h"
#include "electricimage/frame_walker.h"
#include "failure.h"

#include <cctype>
#include <cstdio>

namespace Host {
namespace {

constexpr size_t kWidestNumber = 9; // digits that a name is filled up to

// The place for the number: from the percent sign through the d. Empty when there is none.
struct Place {
    size_t begin;
    size_t end;
    size_t width;
};
std::optional<Place> FindPlace(const std::string& pattern, size_t from)
{
    const size_t begin = pattern.find('%', from);
    if (begin == std::string::npos)
        return std::nullopt;
    size_t at = begin + 1;
    size_t width = 0;
    while (at < pattern.size() && std::isdigit(static_cast<unsigned char>(pattern[at])) != 0 &&
           width <= kWidestNumber)
        width = width * 10 + static_cast<size_t>(pattern[at++] - '0');
    if (at == pattern.size() || pattern[at] != 'd' || width > kWidestNumber)
        return std::nullopt;
    return Place{begin, at + 1, width};
}

// One frame, chosen in the dialog if the file asks.
void OpenFrame(const OpenOptions& options, Session& session, int64_t frame)
{
    DialogUser user(TypingScript(frame), {});
    user.EndAtAlerts();
    const auto sink = CreatePicture(PathOf(FrameName(options.output, frame)), options.picture);
    session.Open(PathOf(options.files.front()), *sink);
    sink->Finish();
}

} // namespace

std::string FrameName(const std::string& pattern, int64_t frame)
{
    const std::optional<Place> place = FindPlace(pattern, 0);
    if (!place || FindPlace(pattern, place->end))
        throw Failure("\"" + pattern + "\" has no place for the frame's number, or several",
                      "Write -o 'frame-%04d.png'.");
    std::string number = std::to_string(frame);
    if (number.size() < place->width)
        number.insert(0, place->width - number.size(), '0');
    return pattern.substr(0, place->begin) + number + pattern.substr(place->end);
}

int OpenAll(const OpenOptions& options, CommonOptions& common)
{
    // Throws for a name without a place for the number, before a frame is opened.
    FrameName(options.output, 1);
    common.operation.interactive = true;
    common.operation.showProgress = false;
    EIFrameWalker frames(PathOf(options.files.front()));
    const uint32_t count = frames.File().frameCount;
    const PluginModule module(common.Module());
    Session session(module, common.operation);
    uint32_t good = 0;
    std::vector<std::string> failures;
    {
        ProgressBar progress("Opening frames");
        while (const auto frame = frames.Next()) {
            try {
                OpenFrame(options, session, frame->number);
                ++good;
            } catch (const Failure& failure) {
                // A bad frame stops none of the others; the user's stop ends them all.
                if (Interrupted())
                    throw;
                failures.push_back("frame " + std::to_string(frame->number) + ": " +
                                   failure.what());
            }
            progress.Show(frame->number, count);
        }
    }
    if (frames.EndedEarly())
        failures.push_back(options.files.front() + " ends before its " + std::to_string(count) +
                           " frames do");
    for (const std::string& failure : failures)
        std::fprintf(stderr, "lumohost: %s\n", failure.c_str());
    std::printf("%u of %u frames written\n", good, count);
    return failures.empty() ? 0 : 1;
}

} // namespace Host
