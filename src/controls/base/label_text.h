// Texts in controls: how wide they are before anything is drawn, and a line on the control's base
// line.
#pragma once

#include "drawing/tools/font_kinds.h"
#include "foundation/base/geometry.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace Kesto {

class CSystemPort;
class CView;

// A port on nothing, which measures texts in the font as the view's window draws them, or at scale
// 1 for null. Valid until the next call.
CSystemPort& MeasuringPort(const CView* view, EFontKind font);

// Whole units that are enough for what `measure` measures, at the port's scale, at twice that and
// at the usual one of windows: a window may come to another monitor, and hinting and the rounding
// of fonts to whole pixels make widths differ.
double WidestAtScales(CSystemPort& port, const std::function<double(const CSystemPort&)>& measure);

// What a label takes, so measured. "&" marks the mnemonic and takes no room.
double MeasureLabel(std::string_view text, EFontKind font, const CView* view);

// A scale that is no whole number may round the port's font up by so much that a text has no room
// any more: then, and only then, the font becomes one pixel smaller. Marks as for ETextFlags.
void FitFont(CSystemPort& port, std::string_view text, double width, std::uint32_t marks);

// Draws a label in the port's font and text colour. The base line depends on the frame's height
// alone, so that texts of all controls in a row share a line. Flags are ETextFlags; one with an
// ellipsis is fitted first.
void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame,
                   std::uint32_t flags);

} // namespace Kesto
