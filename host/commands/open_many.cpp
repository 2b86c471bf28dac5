#include "commands/open_options.h"

#include "child_program.h"
#include "console.h"
#include "failure.h"
#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <mutex>
#include <thread>

namespace Host {
namespace {

// The pictures by file, in the order of the files. Throws Failure when two would have one name.
std::vector<std::filesystem::path> OutputsOf(const OpenOptions& options)
{
    const std::filesystem::path folder = PathOf(options.output);
    std::vector<std::filesystem::path> outputs;
    std::map<std::filesystem::path, std::string> taken;
    for (const std::string& file : options.files) {
        std::filesystem::path output = folder / PathOf(file).stem();
        output += ".png";
        const auto [other, isNew] = taken.emplace(output, file);
        if (!isNew)
            throw Failure(other->second + " and " + file + " would both become " + TextOf(output),
                          "Open them into two folders.");
        outputs.push_back(output);
    }
    return outputs;
}

std::vector<std::string> ArgumentsFor(const OpenOptions& options, const CommonOptions& common,
                                      const std::string& file, const std::filesystem::path& output)
{
    std::vector<std::string> arguments = {"open", "-o", TextOf(output)};
    const auto add = [&arguments](const char* name, const std::string& value) {
        arguments.emplace_back(name);
        arguments.push_back(value);
    };
    add("--memory-limit", common.memoryLimit);
    add("--compression", std::to_string(options.picture.compression));
    if (!common.modulePath.empty())
        add("--module", common.modulePath);
    if (options.frame)
        add("--frame", std::to_string(*options.frame));
    if (options.dialog.keepSettings)
        arguments.emplace_back("--keep-settings");
    // A file's name may begin with a hyphen.
    arguments.emplace_back("--");
    arguments.push_back(file);
    return arguments;
}

// Hands out the files, one after the other, and keeps what became of them. Used by all threads.
class Jobs {
public:
    explicit Jobs(size_t count) : fCount(count) {}

    // The next file's number; nothing when all are given out, or the user wants to stop.
    std::optional<size_t> Take()
    {
        const std::lock_guard lock(fMutex);
        return fNext < fCount && !Interrupted() ? std::optional(fNext++) : std::nullopt;
    }
    void Done(const std::string& file, const ChildEnd& end)
    {
        const std::lock_guard lock(fMutex);
        fProgress.Show(++fDone, static_cast<int64_t>(fCount));
        if (end.status == 0)
            ++fGood;
        else
            fFailures += end.messages.empty() ? "lumohost: " + file + " ended with status " +
                                                    std::to_string(end.status) + "\n"
                                              : end.messages;
    }

    size_t Good() const { return fGood; }
    const std::string& Failures() const { return fFailures; }

private:
    std::mutex fMutex;
    ProgressBar fProgress{"Opening"};
    size_t fCount;
    size_t fNext = 0;
    int64_t fDone = 0;
    size_t fGood = 0;
    std::string fFailures;
};

ChildEnd Open(const std::vector<std::string>& arguments)
try {
    return RunThisProgram(arguments);
} catch (const Failure& failure) {
    return {1, std::string("lumohost: ") + failure.what() + "\n"};
}

} // namespace

int OpenMany(const OpenOptions& options, CommonOptions& common)
{
    if (options.output.empty())
        throw Failure("several files need a folder for their pictures",
                      "Name one with -o FOLDER/.");
    std::error_code error;
    std::filesystem::create_directories(PathOf(options.output), error);
    if (error)
        throw Failure(options.output + " can't be made: " + error.message());
    const std::vector<std::filesystem::path> outputs = OutputsOf(options);
    const size_t count = options.files.size();
    const unsigned wanted =
        options.jobs != 0 ? options.jobs : std::max(1U, std::thread::hardware_concurrency());
    size_t good = 0;
    std::string failures;
    {
        Jobs jobs(count);
        std::vector<std::jthread> threads;
        for (size_t i = 0; i < std::min<size_t>(wanted, count); ++i)
            threads.emplace_back([&] {
                while (const auto number = jobs.Take())
                    jobs.Done(options.files[*number],
                              Open(ArgumentsFor(options, common, options.files[*number],
                                                outputs[*number])));
            });
        // Waits for all of them, before they are counted.
        threads.clear();
        good = jobs.Good();
        failures = jobs.Failures();
    }
    std::fputs(failures.c_str(), stderr);
    std::printf("%zu of %zu pictures written to %s\n", good, count, options.output.c_str());
    if (Interrupted())
        throw FailureOf("stopped", kHostUserCanceled);
    return good == count ? 0 : 1;
}

} // namespace Host
