#include "foundation/settings/settings_locations.h"

#include "foundation/localization/localize.h"

namespace Kesto {
namespace {

CText Localized(CText text)
{
    return Localize(text);
}

} // namespace

std::array<CText, 3> SettingsFolderNames(Edition edition)
{
    CText company = Localized("$$$/private/Prefs/Directory/Orlen=Orlen");
    CText host = Localized("$$$/private/Prefs/Directory/SubDir=Orlen Lumograph ");
    host += kHostYear;
    if (edition == Edition::kQuartets)
        return {company, host, Localized("$$$/private/Prefs/Directory/Quartets=Quartets")};
    const CText settings = Localized("$$$/private/Prefs/Directory/Lumograph=Orlen Lumograph ");
    return {company, host, CText::Join({settings.View(), kHostYear, " Settings"})};
}

} // namespace Kesto
