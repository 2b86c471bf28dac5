#include "platform/system/locale.h"

#include <cstdlib>
#include <langinfo.h>
#include <locale.h>

namespace Platform {

// The variables that carry a session's locale, in the order of precedence of POSIX.
std::string UserLanguageName()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* name = std::getenv(variable); name != nullptr && *name != '\0')
            return LanguageNameFrom(name);
    return LanguageNameFrom({});
}

namespace {

// Of the user's locale, whichever one the program runs in.
std::string PointOfUser()
{
    const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (locale == nullptr)
        return ".";
    const std::string point = nl_langinfo_l(RADIXCHAR, locale);
    freelocale(locale);
    return point.empty() ? "." : point;
}

} // namespace

// Read once: a locale that nobody holds is loaded from its files each time, which takes longer than
// all else in building a dialog, and the environment of a process doesn't change.
std::string DecimalPoint()
{
    static const std::string point = PointOfUser();
    return point;
}

} // namespace Platform
