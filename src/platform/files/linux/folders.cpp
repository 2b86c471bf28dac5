#include "platform/files/folders.h"

#include "platform/files/files.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace Platform {
namespace {

// A variable that holds a path from the root; the base directory rules have others ignored.
const char* PathVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : nullptr;
}

const char* HomeFolder()
{
    if (const char* home = PathVariable("HOME"))
        return home;
    const passwd* entry = getpwuid(getuid());
    return entry != nullptr ? entry->pw_dir : nullptr;
}

} // namespace

std::uint32_t FindUserDataFolder(std::string& path)
{
    if (const char* config = PathVariable("XDG_CONFIG_HOME")) {
        path = config;
        return 0;
    }
    const char* home = HomeFolder();
    if (home == nullptr)
        return ENOENT;
    path = JoinPath(home, ".config");
    return 0;
}

std::string TemporaryFolder()
{
    const char* folder = PathVariable("TMPDIR");
    return folder != nullptr ? folder : "/tmp";
}

} // namespace Platform
