// The small integers that tell the module's projects apart.
#pragma once

#include <cstdint>

namespace Kesto {

// One name for each entry: kProject_EntryBMP, kProject_EntryElectricImage and so on.
enum ProjectIndex : int32_t {
#define SIDECAR_ENTRY(index, entry, group) kProject_##entry = index,
#include "plugin/frame/entries.inc"
#undef SIDECAR_ENTRY
};

} // namespace Kesto
