#include "platform/system/process.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <limits>
#include <unistd.h>

namespace Platform {

void MakeProcessDpiAware() {}

void ReadyCommonControls() {}

std::uint32_t ProcessNumber()
{
    return static_cast<std::uint32_t>(getpid());
}

bool ProcessMayRun(std::uint32_t number)
{
    if (number == 0 || number > static_cast<std::uint32_t>(std::numeric_limits<pid_t>::max()))
        return false;
    return kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH;
}

namespace {

// The loader knows a program only by the name that it was started with.
std::string ProgramPath()
{
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path;
}

} // namespace

std::string ModulePath()
{
    static const char anchor = 0;
    Dl_info info{};
    std::string path(PATH_MAX, '\0');
    if (dladdr(&anchor, &info) == 0 || info.dli_fname == nullptr ||
        realpath(info.dli_fname, path.data()) == nullptr)
        return ProgramPath();
    path.resize(path.find('\0'));
    return path;
}

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

} // namespace Platform
