// How a block of the host's samples becomes a part of a preview's buffer: each pixel repeated, or
// every s-th one taken, with or without a mask.
#pragma once

#include "dialogs/preview/preview_rect.h"
#include "dialogs/preview/preview_scale.h"

#include <cstddef>
#include <cstdint>

namespace Project {

// Interleaved samples over a rectangle of the document.
struct BlockSamples {
    const uint8_t* bytes; // of the rectangle's top left corner, at the first sample that is wanted
    size_t rowStep;       // bytes from row to row
    size_t pixelStep;     // and from pixel to pixel
    PixelRect rect;
};

// The buffer's side: packed pixels over the rectangle `rect` of the document, scaled by the
// factors.
struct BufferSamples {
    uint8_t* bytes;
    size_t rowStep;
    size_t pixelStep;
    PixelRect rect;
    PreviewFactors factors;
    int32_t samples; // of a pixel that are copied
    int32_t depth;   // bits of a sample: 8, 16 or 32
};

// The size in buffer pixels of a rectangle of the document.
DocumentSize ScaledSize(const PixelRect& rect, const PreviewFactors& factors);

// Copies what of `part`, a rectangle of the document, both the block and the buffer have. With a
// mask, bytes of one sample a pixel, the block is blended over what the buffer holds; where the
// mask has no pixel, nothing is copied.
void CopyBlock(const BlockSamples& block, const BlockSamples* mask, const PixelRect& part,
               const BufferSamples& buffer);

// Blends packed pixels over old ones, by a mask of a byte for each pixel: where it is 0 they become
// the old ones.
void BlendOver(uint8_t* pixels, const uint8_t* old, const uint8_t* mask, size_t count,
               int32_t samples, int32_t depth);

} // namespace Project
