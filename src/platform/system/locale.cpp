#include "platform/system/locale.h"

#include <algorithm>

namespace Platform {
namespace {

constexpr std::string_view kFallback = "en_US";

bool IsLanguage(std::string_view part)
{
    return (part.size() == 2 || part.size() == 3) &&
           std::ranges::all_of(part, [](char c) { return c >= 'a' && c <= 'z'; });
}

// A country's two letters, or the three digits of a part of the world.
bool IsRegion(std::string_view part)
{
    return (part.size() == 2 &&
            std::ranges::all_of(part, [](char c) { return c >= 'A' && c <= 'Z'; })) ||
           (part.size() == 3 &&
            std::ranges::all_of(part, [](char c) { return c >= '0' && c <= '9'; }));
}

// Takes the part before the next '_' or '-'.
std::string_view TakePart(std::string_view& name)
{
    const std::size_t length = name.find_first_of("_-");
    const std::string_view part = name.substr(0, length);
    name.remove_prefix(std::min(name.size(), part.size() + 1));
    return part;
}

} // namespace

std::string LanguageNameFrom(std::string_view systemName)
{
    std::string_view rest = systemName.substr(0, systemName.find_first_of(".@"));
    const std::string_view language = TakePart(rest);
    if (!IsLanguage(language))
        return std::string(kFallback);
    while (!rest.empty()) // a script may precede the region, variants may follow it
        if (const std::string_view part = TakePart(rest); IsRegion(part))
            return std::string(language) + '_' + std::string(part);
    return std::string(kFallback);
}

} // namespace Platform
