#include "formats/electricimage/preference_names.h"

namespace Project {

using namespace Kesto;

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

} // namespace Project
