// The selector switch of the ElectricImage format: plain functions on a session block.
#pragma once

#include "lumograph/lumograph.h"

namespace Project {

// Serves one selector. `*data` is the host's data word: 0 at first, then the handle of the session
// block, which this makes on the first call. `*result` receives the code of the selector. Nothing
// is thrown.
void EIPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data, int16_t* result);

} // namespace Project
