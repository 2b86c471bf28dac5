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

bool IsRegion(std::string_view part)
{
    return part.size() == 2 &&
           std::ranges::all_of(part, [](char c) { return c >= 'A' && c <= 'Z'; });
}

} // namespace

std::string LanguageNameFrom(std::string_view systemName)
{
    const std::string_view name = systemName.substr(0, systemName.find_first_of(".@"));
    const std::string_view language = name.substr(0, name.find_first_of("_-"));
    const std::string_view region = name.substr(name.find_last_of("_-") + 1);
    if (!IsLanguage(language) || !IsRegion(region))
        return std::string(kFallback);
    return std::string(language) + '_' + std::string(region);
}

} // namespace Platform
