// How views lie beside and within each other. The language writes these numbers as align_fill,
// place_row and so on.
#pragma once

#include <cstdint>

namespace Kesto {

// How a view lies in its parent; 0 is the default, which equals none of these.
enum ELayoutAlignment : std::int32_t {
    kAlign_InFill = 1,
    kAlign_InCenter = 2,
    kAlign_InProportional = 3,
    kAlign_InLeading = 4, // left or top
    kAlign_InTrailing = 5,
};

// How the children of a view lie.
enum EPlacement : std::int32_t {
    kPlace_Column = 0,
    kPlace_Row = 1,
    kPlace_Offscreen = 2, // on top of each other, for a view that shows one of them
};

// The frames of the standard words; the classes know many more.
enum EStandardFrame : std::int32_t {
    kStandardFrame_None = 0,
    kStandardFrame_Bevel = 1,
    kStandardFrame_Rectangle = 2,
};

} // namespace Kesto
