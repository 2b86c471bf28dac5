// The font of a device for a font that is given in units.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "platform/graphics/fonts.h"

namespace Kesto {

// At a scale, which the size is mapped by; it is at least a pixel.
Platform::FontSpec DeviceFontSpec(const CFont& font, double fontScale, double scale);

} // namespace Kesto
