// The callback through which the host looks into the windows of this module's plug-ins.
#pragma once

#include "lumograph/view_info.h"

namespace Kesto {

// Describes a window of the project's plug-in, whichever kind of plug-in it is; a null window means
// the front one. Non-zero: `*descriptorOut` is the description. The descriptor is the host's in any
// case; it is null when there was nothing to describe. Throws nothing.
uint8_t ViewInfoCallback(void* window, int32_t projectIndex, HostDescriptor* descriptorOut,
                         uint32_t eventKey);

} // namespace Kesto
