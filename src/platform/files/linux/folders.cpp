#include "platform/files/folders.h"

#include "platform/files/files.h"
#include "platform/files/linux/user_folder.h"

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

std::string UserFolder(const char* variable, const char* name)
{
    const char* folder = PathVariable(variable);
    return folder != nullptr ? folder : HomePath(name);
}

std::string HomePath(const char* name)
{
    const char* home = HomeFolder();
    return home != nullptr ? JoinPath(home, name) : std::string();
}

std::uint32_t FindUserDataFolder(std::string& path)
{
    path = UserFolder("XDG_CONFIG_HOME", ".config");
    return path.empty() ? ENOENT : 0;
}

std::string TemporaryFolder()
{
    const char* folder = PathVariable("TMPDIR");
    return folder != nullptr ? folder : "/tmp";
}

} // namespace Platform
