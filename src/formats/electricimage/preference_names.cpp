#include "formats/electricimage/preference_names.h"

namespace Project {

using namespace Kesto;

void GetElectricImagePrefsNames(Edition edition, CText& registryPath, CText& fileName)
{
    fileName = "$$$/PFormatElectricImage/Prefs/FileName=Electric Image Format Prefs.lgp";
    if (edition == Edition::kQuartets)
        registryPath = "$$$/private/PFormatElectricImage/Prefs/RegPath/"
                       "Quartets=Software^LOrlen^LElectric Image Format^LQuartets";
    else
        registryPath = CText::Join({"$$$/private/PFormatElectricImage/Prefs/RegPath/"
                                    "Lumograph=Software^LOrlen^LElectric Image Format^L",
                                    kHostYear, "^LLumograph"});
}

} // namespace Project
