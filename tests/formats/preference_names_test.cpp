#include "formats/electricimage/preference_names.h"

#include "foundation/localization/localize.h"
#include "support/testing.h"

namespace Project {
namespace {

using namespace Kesto;

TEST(PreferenceNames, AreThoseOfEachEdition)
{
    for (const auto& [edition, key] :
         {std::pair{Edition::kLumograph, "2025\\Lumograph"}, {Edition::kQuartets, "Quartets"}}) {
        SCOPED_TRACE(key);
        CText path, file;
        GetElectricImageSettingsLocation(edition, path, file);
        EXPECT_EQ(Localize(path), std::string("Software\\Orlen\\Electric Image Format\\") + key);
        EXPECT_EQ(Localize(file), "Electric Image Format Prefs.lgp");
    }
}

} // namespace
} // namespace Project
