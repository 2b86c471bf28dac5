#include "platform/system/locale.h"

#include "platform/system/win32/wide.h"

#include <array>
#include <windows.h>

namespace Platform {

std::string UserLanguageName()
{
    std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
    const int units = LCIDToLocaleName(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT),
                                       name.data(), static_cast<int>(name.size()), 0);
    return LanguageNameFrom(units > 0 ? FromWide(name.data()) : std::string());
}

std::string DecimalPoint()
{
    std::array<wchar_t, 8> point{};
    const int units = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, point.data(),
                                     static_cast<int>(point.size()));
    return units > 1 ? FromWide(point.data()) : ".";
}

} // namespace Platform
