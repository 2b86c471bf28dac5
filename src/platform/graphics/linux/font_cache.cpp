#include "platform/graphics/linux/font_cache.h"

#include "platform/files/files.h"
#include "platform/system/process.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform {
namespace {

constexpr std::time_t kLongest = 24 * 60 * 60; // seconds that answers hold
constexpr off_t kMostBytes = 1 << 20;
constexpr std::size_t kMostFonts = 64;

bool IsOurs(const struct stat& facts)
{
    return facts.st_uid == geteuid();
}

bool IsYoung(const struct stat& facts)
{
    const std::time_t age = std::time(nullptr) - facts.st_mtim.tv_sec;
    return age >= 0 && age < kLongest;
}

// Empty if there is nothing that may be trusted.
std::string BytesAt(const std::string& path)
{
    struct stat facts {};
    FileHandle file;
    if (stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode) || !IsOurs(facts) ||
        !IsYoung(facts) || facts.st_size > kMostBytes || file.Open(path, FileMode::kRead) != 0)
        return {};
    std::string bytes(static_cast<std::size_t>(facts.st_size), '\0');
    bytes.resize(file.ReadAt(bytes.data(), bytes.size(), 0).done);
    return bytes;
}

bool Hold(const FontAnswers& answers)
{
    return std::ranges::all_of(answers.conditions, [](const auto& each) {
        return ValueOfCondition(each.first) == each.second;
    });
}

// A user who acts for another one leaves nothing in that one's home.
bool MayMake(std::string folder)
{
    struct stat facts {};
    while (!folder.empty() && stat(folder.c_str(), &facts) != 0)
        folder = FolderOf(folder);
    return !folder.empty() && IsOurs(facts);
}

FontSpec KeyOf(FontSpec spec)
{
    spec.underline = false;
    return spec;
}

} // namespace

FontCache::FontCache(std::string folder)
    : fFolder(std::move(folder)),
      fPath(JoinPath(fFolder,
                     "fonts-" + std::to_string(std::hash<std::string>()(SurroundingsOfFonts()))))
{
    std::optional<FontAnswers> kept = ReadFontAnswers(BytesAt(fPath));
    if (kept && Hold(*kept))
        fAnswers = std::move(*kept);
}

std::optional<FontFile> FontCache::Find(const FontSpec& spec) const
{
    const auto found = fAnswers.files.find(KeyOf(spec));
    return found != fAnswers.files.end() ? std::optional(found->second) : std::nullopt;
}

// A font from none of the folders is one that the program has brought and may leave out next time.
void FontCache::Keep(const FontSpec& spec, const FontFile& file, const FontSources& sources)
{
    auto conditions = ConditionsOf(sources);
    if (!conditions || !conditions->contains(FolderOf(file.path)))
        return;
    if (fAnswers.conditions != *conditions || fAnswers.files.size() == kMostFonts)
        fAnswers = {std::move(*conditions), {}};
    fAnswers.files[KeyOf(spec)] = file;
    Write();
}

// Whoever reads it meanwhile sees the old file or the new one.
void FontCache::Write() const
{
    const std::string bytes = BytesOf(fAnswers);
    const std::string fresh = fPath + "." + std::to_string(ProcessNumber());
    FileHandle file;
    if (!MayMake(fFolder) || MakeFolderPath(fFolder) != 0 ||
        file.Open(fresh, FileMode::kReplace) != 0)
        return;
    const bool isWhole = file.WriteAt(bytes.data(), bytes.size(), 0).error == 0;
    if (file.Close() != 0 || !isWhole || MoveFileOver(fresh, fPath) != 0)
        RemoveFile(fresh);
}

} // namespace Platform
