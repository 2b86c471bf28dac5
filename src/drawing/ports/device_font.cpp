#include "drawing/ports/device_font.h"

#include <algorithm>
#include <string>

namespace Kesto {

Platform::FontSpec DeviceFontSpec(const CFont& font, double fontScale, double scale)
{
    return {.face = std::string(font.face.View()),
            .pixels = std::max(ToDevice(font.size * fontScale, scale), 1),
            .weight = font.bold ? 700 : 400,
            .italic = font.italic};
}

} // namespace Kesto
