// Kernels of alpha arithmetic on 8-bit views of 1 to 4 planes.
//
// One formula throughout: T[a][source] + T[255 - a][below], with the blend table's T. Per-pixel
// alpha comes from a view of one plane. An output may be one of the inputs.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// The source over what is below it, by a mask or by one alpha for all.
void Blend(const CPixView& out, const CPixView& source, const CPixView& below,
           const CPixView& mask);
void Blend(const CPixView& out, const CPixView& source, const CPixView& below, std::uint8_t alpha);

// A colour, one value for each plane, over pixels.
void BlendColour(const CPixView& out, std::span<const std::uint8_t> colour, const CPixView& below,
                 const CPixView& mask);
void BlendColour(const CPixView& out, std::span<const std::uint8_t> colour, const CPixView& below,
                 std::uint8_t alpha);

// A colour over a colour.
void BlendColours(const CPixView& out, std::span<const std::uint8_t> colour,
                  std::span<const std::uint8_t> below, const CPixView& mask);

// Weights the view's pixels by the mask: T[mask][v]; or by the inverted mask: T[255 - mask][v].
void ApplyMask(const CPixView& view, const CPixView& mask);
void ApplyInvertedMask(const CPixView& view, const CPixView& mask);

} // namespace Kesto::Kernels
