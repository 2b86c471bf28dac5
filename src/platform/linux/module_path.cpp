#include "platform/module_path.h"

#include <climits>
#include <cstdlib>

#include <dlfcn.h>
#include <unistd.h>

namespace Platform {
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
    if (dladdr(&anchor, &info) == 0 || info.dli_fname == nullptr || realpath(info.dli_fname, path.data()) == nullptr)
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
