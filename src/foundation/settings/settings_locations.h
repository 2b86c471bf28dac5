// The names under which settings are kept, for each edition of the host. The build picks one
// edition.
#pragma once

#include "foundation/base/text.h"

#include <array>
#include <string_view>

namespace Kesto {

enum class Edition { kLumograph, kQuartets };

// The edition that this module was built for.
Edition HostEdition();

// The year in the names of the host's folders.
inline constexpr std::string_view kHostYear = "2025";

// The name of the value in the registry, as a key to be localised.
inline constexpr std::string_view kSettingsValueName = "$$$/KestoFilter/Prefs/RegName=Preferences";

// The folders below the user data folder, outermost first, localised.
std::array<CText, 3> SettingsFolderNames(Edition edition);

} // namespace Kesto
