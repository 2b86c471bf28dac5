// The glow itself: a picture blended with a blurred copy of itself.
#pragma once

#include "soft_glow_settings.h"

#include <cstddef>
#include <cstdint>

namespace SoftGlow {

// A rectangle of pixels, interleaved; samples of `bits` 8, 16 (0 to 32768) or 32 (float).
template <class Byte>
struct Pixels {
    Byte* bytes;
    ptrdiff_t stride; // bytes from row to row
    int32_t width;
    int32_t height;
};

// Pixels beyond what is to be changed that have to be known for it.
int32_t Reach(const Settings& settings);

// Fills `to` from the part of `from` whose top left corner is at `left`, `top`. Light comes from
// all of `from`; at its edges there is no more. Planes from `colours` on are copied as they are.
void Glow(const Settings& settings, int32_t bits, int32_t planes, int32_t colours,
          const Pixels<const uint8_t>& from, int32_t left, int32_t top, const Pixels<uint8_t>& to);

} // namespace SoftGlow
