// The outline of a line that has a width.
#pragma once

#include "platform/graphics/path.h"
#include "platform/graphics/rasterizer.h"

namespace Platform {

// Adds the outline of a stroke along the figure, to be filled by the non-zero rule: with flat ends,
// and corners that are mitred up to four half widths and cut off beyond. A figure without length
// adds nothing.
void AddStroke(Rasterizer& rasterizer, const Path::Figure& figure, double width);

} // namespace Platform
