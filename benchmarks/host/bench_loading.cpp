// What people wait for before they see anything: whole processes from their start to their end,
// against a C++ program that does nothing, in the same run. No display is used.
#include "rounds.h"

#include <spawn.h>
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

// Runs it to its end; a failure ends the benchmark.
void RunProcess(const Command& command)
{
    std::vector<char*> arguments;
    for (const std::string& each : command)
        arguments.push_back(const_cast<char*>(each.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    int status = 1;
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
        std::fprintf(stderr, "failed: %s\n", command[0].c_str());
        std::exit(1);
    }
}

void Show(const std::vector<Row>& rows)
{
    constexpr std::size_t kRounds = 41;
    std::vector<Contender> contenders;
    for (const Row& row : rows)
        contenders.push_back({[&row] { RunProcess(row.command); }});
    const std::vector<Seconds> seconds = TimeRounds(kRounds, contenders);
    std::printf("%-44s %10s %10s %10s\n", "whole processes", "median", "best", "more");
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
