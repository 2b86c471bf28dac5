// Which file has a font, by fontconfig.
#pragma once

#include "platform/graphics/linux/font_answers.h"

#include <array>
#include <optional>

namespace Platform {

// What stands in for a face that isn't installed, the best first.
inline constexpr std::array kFallbackFaces = {"Tahoma", "DejaVu Sans Condensed", "DejaVu Sans",
                                              "sans-serif"};

// The file whose outlines are this font when they are hinted slightly and drawn in grey. None where
// the font has to be slanted, emboldened or otherwise changed for it, or its user wishes to see it
// in another way.
std::optional<FontFile> FindPlainFontFile(const FontSpec& spec);

} // namespace Platform
