// Where a call to a format's entry crosses into the world of objects.
#pragma once

#include "plugin/format/plugin_registry.h"

namespace Kesto {

// Takes what the entry was called with and the project whose entry it was. Finds the project's
// object or has `factory` make it, lets it serve the selector, decides whether it dies, and stores
// the code in `*result`. Nothing is thrown: whatever comes here ends the object and makes the
// result 1.
void DispatchFormat(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, FormatFactory factory);

} // namespace Kesto
