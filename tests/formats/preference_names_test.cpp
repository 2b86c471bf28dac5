#include "formats/electricimage/preference_names.h"

#include "foundation/localize.h"

#include <gtest/gtest.h>

namespace Project {
namespace {

using namespace Kesto;

TEST(PreferenceNames, AreThoseOfEachEdition)
{
    CText path;
    CText file;
    GetElectricImagePrefsNames(Edition::kLumograph, path, file);
    EXPECT_EQ(Localize(path), "Software\\Orlen\\Electric Image Format\\2025\\Lumograph");
    EXPECT_EQ(Localize(file), "Electric Image Format Prefs.lgp");
    GetElectricImagePrefsNames(Edition::kQuartets, path, file);
    EXPECT_EQ(Localize(path), "Software\\Orlen\\Electric Image Format\\Quartets");
    EXPECT_EQ(Localize(file), "Electric Image Format Prefs.lgp");
}

} // namespace
} // namespace Project
