// The module's projects by name: kProject_EntryBMP, kProject_EntryElectricImage and so on, one for
// each row of entries.inc.
#pragma once

#include "plugin/frame/project_index.h"

namespace Kesto {

#define SIDECAR_ENTRY(index, entry, group) inline constexpr ProjectIndex kProject_##entry{index};
#include "module/entries.inc"
#undef SIDECAR_ENTRY

} // namespace Kesto
