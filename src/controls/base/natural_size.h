// What builders of controls say about the size of their view.
#pragma once

#include "drawing/tools/font_kinds.h"
#include "foundation/base/geometry.h"

#include <cstdint>
#include <string_view>

namespace Kesto {

class CSystemPort;
class LayoutOwner;
struct ViewLayoutRecord;

// Gives the record a width and a height where the text gives none.
void SetNaturalSize(ViewLayoutRecord& record, const Point& size);

// A port that measures texts as they will be drawn in the window that the owner builds.
CSystemPort& MeasuringPort(const LayoutOwner& owner, EFontKind font);

} // namespace Kesto
