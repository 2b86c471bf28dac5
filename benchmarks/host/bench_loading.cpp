// What people wait for before they see anything: whole processes from their start to their end,
// against a C++ program that does nothing, in the same run. No display is used.
#include "processes.h"
#include "rounds.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

using namespace Bench;

namespace {

struct Row {
    const char* name;
    Command command;
};

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
