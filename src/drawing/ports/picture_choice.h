// The one place where the density of a picture is chosen, and its size in units told.
#pragma once

#include "foundation/base/geometry.h"
#include "images/pictures/dual_picture.h"

namespace Kesto {

struct CPictureChoice {
    const CMemoryPixmap* pixmap = nullptr; // of the picture; null when it has none
    Point size;                            // of the picture in units, whichever was chosen
};

// The high density above a scale of 1, the low one else; where that is missing, the other.
CPictureChoice ChoosePicture(const CDualPicture& picture, double scale);

} // namespace Kesto
