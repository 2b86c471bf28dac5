// Where the ElectricImage format keeps its preferences.
#pragma once

#include "foundation/settings/settings_locations.h"

namespace Project {

// The key path in the registry and the name of the file for an edition of the host, as keys to be
// localised.
void GetElectricImageSettingsLocation(Kesto::Edition edition, Kesto::CText& keyPath,
                                      Kesto::CText& fileName);

} // namespace Project
