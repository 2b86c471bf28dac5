#include "child_program.h"

#include "failure.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Host {
namespace {

constexpr const char* kThisProgram = "/proc/self/exe";

// The end of a pipe, closed at the latest with the object.
class Descriptor {
public:
    explicit Descriptor(int number) : fNumber(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return fNumber; }
    void Close()
    {
        if (fNumber >= 0)
            close(fNumber);
        fNumber = -1;
    }

private:
    int fNumber;
};

class SpawnActions {
public:
    SpawnActions() { posix_spawn_file_actions_init(&fActions); }
    ~SpawnActions() { posix_spawn_file_actions_destroy(&fActions); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    posix_spawn_file_actions_t* Get() { return &fActions; }

private:
    posix_spawn_file_actions_t fActions;
};

void RequireSystem(int error)
{
    if (error != 0)
        throw Failure(std::string("can't start another process: ") + std::strerror(error),
                      "Try again with fewer --jobs.");
}

std::string ReadAll(int from)
{
    std::string all;
    std::array<char, 4096> piece;
    for (;;) {
        const ssize_t got = read(from, piece.data(), piece.size());
        if (got > 0)
            all.append(piece.data(), static_cast<size_t>(got));
        else if (got == 0 || errno != EINTR)
            return all;
    }
}

int StatusOf(pid_t child)
{
    int ended = 0;
    while (waitpid(child, &ended, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(ended) ? WEXITSTATUS(ended) : 128 + WTERMSIG(ended);
}

} // namespace

ChildEnd RunThisProgram(const std::vector<std::string>& arguments)
{
    std::array<int, 2> ends;
    RequireSystem(pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno);
    const Descriptor from(ends[0]);
    Descriptor to(ends[1]);
    SpawnActions actions;
    posix_spawn_file_actions_addopen(actions.Get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(actions.Get(), STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(actions.Get(), to.Get(), STDERR_FILENO);
    std::vector<std::string> words = {"lumohost"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t child = 0;
    RequireSystem(
        posix_spawn(&child, kThisProgram, actions.Get(), nullptr, pointers.data(), environ));
    // As long as this end is open the reading would wait for more.
    to.Close();
    ChildEnd end;
    end.messages = ReadAll(from.Get());
    end.status = StatusOf(child);
    return end;
}

} // namespace Host
