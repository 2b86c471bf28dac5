// The pictures that the races are run on, the same at every run. 24 bits a pixel.
#pragma once

#include "formats/lean_host.h"

namespace Bench {

// Light and dark with grain, as a camera delivers it: neighbours are hardly ever equal.
Bytes PhotoLike(int width, int height);

// Flat areas of a few dozen pixels, outlines, and edges that are blended over a pixel or two.
Bytes CartoonLike(int width, int height);

// One row of the latter.
void CartoonRow(int width, int row, uint8_t* bytes);

} // namespace Bench
