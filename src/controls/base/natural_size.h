// What builders of controls say about the size of their view.
#pragma once

#include "foundation/base/geometry.h"

namespace Kesto {

struct ViewLayoutRecord;

// Gives the record a width and a height where the text gives none.
void SetNaturalSize(ViewLayoutRecord& record, const Point& size);

} // namespace Kesto
