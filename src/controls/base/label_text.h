// One line of text in a control: its natural width, and its drawing on the control's base line.
#pragma once

#include "drawing/tools/font_kinds.h"
#include "foundation/base/geometry.h"

#include <cstdint>
#include <string_view>

namespace Kesto {

class CSystemPort;
class CView;

// Whole units that a label takes at the scale of the view, or at scale 1 for null, and at twice
// that: a window may come to another monitor, and hinting makes widths differ. "&" marks the
// mnemonic and takes no room.
double MeasureLabel(std::string_view text, EFontKind font, const CView* view);

// Draws a label in the port's font and text colour. The base line depends on the frame's height
// alone, so that texts of all controls in a row share a line. Flags are ETextFlags.
void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame,
                   std::uint32_t flags);

} // namespace Kesto
