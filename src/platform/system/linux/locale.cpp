#include "platform/system/locale.h"

#include <cstdlib>

namespace Platform {

// The variables that carry a session's locale, in the order of precedence of POSIX.
std::string UserLanguageName()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* name = std::getenv(variable); name != nullptr && *name != '\0')
            return LanguageNameFrom(name);
    return LanguageNameFrom({});
}

} // namespace Platform
