#include "foundation/settings_locations.h"

#include "foundation/localize.h"

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

void GetElectricImageSettingsLocation(Edition edition, CText& keyPath, CText& fileName)
{
    fileName = "$$$/PFormatElectricImage/Prefs/FileName=Electric Image Format Prefs.lgp";
    if (edition == Edition::kQuartets)
        keyPath = "$$$/private/PFormatElectricImage/Prefs/RegPath/"
                  "Quartets=Software^LOrlen^LElectric Image Format^LQuartets";
    else
        keyPath = CText::Join({"$$$/private/PFormatElectricImage/Prefs/RegPath/"
                               "Lumograph=Software^LOrlen^LElectric Image Format^L",
                               kHostYear, "^LLumograph"});
}

} // namespace Kesto
