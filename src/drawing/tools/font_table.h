// The table of fonts: a row for each of the seven classes, whose name and size a translation may
// change.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "drawing/tools/font_kinds.h"

namespace Kesto {

// The font of a kind, which is a class in one of four styles. What is no kind is kFont_System.
// `language` is a name like "en_US": it decides which face the built-in default is.
CFont ResolveFont(EFontKind kind, std::string_view language);

} // namespace Kesto
