// Runs programs from their start to their end, for benchmarks of what people wait for before they
// see anything.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace Bench {

using Command = std::vector<std::string>;

// What all processes have taken of the processor that were started here and have ended. The clock's
// time would be other programs' too.
inline double SecondsOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// Runs it to its end, with what it prints dropped; a failure ends the benchmark.
inline void RunProcess(const Command& command)
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

} // namespace Bench
