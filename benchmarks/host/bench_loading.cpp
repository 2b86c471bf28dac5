// What people wait for before they see anything: whole processes from their start to their end,
// against a C++ program that does nothing, in the same run. No display is used. The processor's
// time is taken, since that of the clock is other programs' too.
#include "rounds.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

using namespace Bench;

namespace {

using Command = std::vector<std::string>;

struct Row {
    const char* name;
    Command command;
};

// What all processes have taken that were started here and have ended.
double SecondsOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Runs it to its end, with what it prints dropped; a failure ends the benchmark.
void RunProcess(const Command& command)
{
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    std::vector<char*> arguments;
    for (const std::string& each : command)
        arguments.push_back(const_cast<char*>(each.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 1;
    if (posix_spawn(&process, arguments[0], &quiet, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
        std::fprintf(stderr, "failed: %s\n", command[0].c_str());
        std::exit(1);
    }
    posix_spawn_file_actions_destroy(&quiet);
}

void Show(const std::vector<Row>& rows)
{
    constexpr std::size_t kRounds = 41;
    std::vector<Contender> contenders;
    for (const Row& row : rows)
        contenders.push_back({[&row] { RunProcess(row.command); }});
    const std::vector<Seconds> seconds = TimeRounds(kRounds, contenders, SecondsOfChildren);
    std::printf("%-44s %10s %10s %10s\n", "processor time of whole processes", "median", "best",
                "more");
    for (std::size_t i = 0; i < rows.size(); ++i)
        std::printf("%-44s %7.2f ms %7.2f ms %7.2f ms\n", rows[i].name, seconds[i].median * 1e3,
                    seconds[i].best * 1e3, (seconds[i].median - seconds[0].median) * 1e3);
}

} // namespace

int main()
{
    unsetenv("DISPLAY");
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("bench_loading." + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    const std::string picture = folder / "picture.ppm", samples = SAMPLES;
    Show(
        {{"an empty C++ program", {LOADER}},
         {"the same, which loads the module", {LOADER, MODULE}},
         {"lumohost --version", {LUMOHOST, "--version"}},
         {"lumohost info", {LUMOHOST, "info", samples + "rgb-24.eiz"}},
         {"lumohost open, to a picture", {LUMOHOST, "open", samples + "rgb-24.eiz", "-o", picture}},
         {"lumohost open, to a picture by the dialog",
          {LUMOHOST, "open", samples + "five-frames.ei", "--frame", "2", "-o", picture}}});
    std::filesystem::remove_all(folder);
    return 0;
}
