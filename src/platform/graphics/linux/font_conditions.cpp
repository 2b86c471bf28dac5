#include "platform/graphics/linux/font_conditions.h"

#include "platform/files/files.h"
#include "platform/files/linux/user_folder.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform {
namespace {

constexpr std::array kSurroundings = {
    kProgram,        "FC_LANG",      "FONTCONFIG_FILE", "FONTCONFIG_PATH", "FONTCONFIG_SYSROOT",
    "HOME",          "LANG",         "LC_ALL",          "LC_CTYPE",        "XDG_CONFIG_HOME",
    "XDG_DATA_DIRS", "XDG_DATA_HOME"};

// Nanoseconds that the kernel's clock for files may be behind.
constexpr std::int64_t kTick = 100'000'000;

// The time of a file's last change of any kind, which no program can set back. 0 without a file.
std::int64_t ChangeTime(const struct stat& facts)
{
    return facts.st_ctim.tv_sec * std::int64_t{1'000'000'000} + facts.st_ctim.tv_nsec;
}

// All 0 for a file that isn't there.
struct stat FactsOf(const std::string& path)
{
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0)
        facts = {};
    return facts;
}

std::string StateOf(const struct stat& facts)
{
    return std::to_string(facts.st_ino) + " " + std::to_string(ChangeTime(facts));
}

std::string ProgramPath()
{
    std::array<char, 4096> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    return {path.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

// Where more of the configuration may come to stand, as fontconfig's own files have it: it doesn't
// tell what it found missing of that.
std::vector<std::string> PlacesOfMore(const std::string& mainFile)
{
    const std::string user = JoinPath(UserFolder("XDG_CONFIG_HOME", ".config"), "fontconfig");
    return {JoinPath(user, "fonts.conf"), JoinPath(user, "conf.d"), HomePath(".fonts.conf"),
            HomePath(".fonts.conf.d"), mainFile.substr(0, mainFile.rfind('/')) + "/local.conf"};
}

} // namespace

std::int64_t WallClock()
{
    const auto time = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(time).count();
}

std::string ValueOfCondition(const std::string& name)
{
    if (name.starts_with('/'))
        return StateOf(FactsOf(name));
    if (name == kProgram)
        return ProgramPath();
    const char* const value = std::getenv(name.c_str());
    return value != nullptr ? std::string("=") + value : std::string();
}

std::string SurroundingsOfFonts()
{
    std::string all;
    for (const char* name : kSurroundings)
        all += ValueOfCondition(name) + '\n';
    return all;
}

std::optional<std::map<std::string, std::string>> ConditionsOf(const FontSources& sources)
{
    if (sources.paths.empty())
        return std::nullopt;
    std::map<std::string, std::string> conditions;
    for (const char* name : kSurroundings)
        conditions[name] = ValueOfCondition(name);
    std::vector<std::string> paths = PlacesOfMore(sources.paths.front());
    paths.insert(paths.end(), sources.paths.begin(), sources.paths.end());
    for (const std::string& path : paths) {
        const struct stat facts = FactsOf(path);
        if (!path.starts_with('/') || ChangeTime(facts) > sources.since - kTick)
            return std::nullopt;
        conditions[path] = StateOf(facts);
    }
    return conditions;
}

} // namespace Platform
