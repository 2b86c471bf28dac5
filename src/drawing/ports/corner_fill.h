// Filling rounded shapes with kept corners: the straight parts are rectangles, so that only a few
// pixels are blended.
#pragma once

#include "drawing/ports/pixel_surface.h"
#include "drawing/ports/rounded_frame.h"

namespace Kesto {

// True for radii that are worth a mask.
bool HasKeptCorners(const CRoundedFrame& shape);

// Fills a shape that has kept corners within the clip, which lies in the surface. Of a ring,
// `inner` is what is left out; `hidden` may stay unfilled, since something will be painted over it.
void FillRounded(const CPixelSurface& surface, const CDeviceRegion& clip,
                 const CRoundedFrame& outer, const CRoundedFrame* inner, Colour colour,
                 const PixelRect& hidden = {});

} // namespace Kesto
