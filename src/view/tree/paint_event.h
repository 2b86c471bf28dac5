// CPaintEvent, the order to draw, with the area that needs it.
#pragma once

#include "drawing/regions/region.h"

namespace Kesto {

struct CPaintEvent {
    CDeviceRegion fUpdate; // pixels of the context's port
};

} // namespace Kesto
