// The pictures that the decoders race on, the same at every run.
#pragma once

#include "images/png/png_writer.h"

namespace Bench {

// Light and dark with grain, as a camera delivers it; alpha fades out at the borders. Any colour
// type but the palette's.
TestPNG::Picture PhotoLike(std::int32_t side, std::uint8_t colorType);

// The same light in the 216 colours of six levels each, and the error to the next level as grain.
TestPNG::Picture DitheredPhotoLike(std::int32_t side);

// Areas, shades and edges of a drawing in 200 colours.
TestPNG::Picture DrawingLike(std::int32_t side);

// A round shape with a shade and a soft edge; `seed` varies place, size and colour.
TestPNG::Picture IconLike(std::int32_t side, std::uint32_t seed);

} // namespace Bench
