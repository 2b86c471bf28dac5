// The other decoders in the race, and the encoder whose files they all get.
#pragma once

#include "images/png/png_writer.h"

namespace Bench {

using TestPNG::Bytes;

// Writes a file with libpng, at zlib's level 6 and with the filters that libpng finds best for each
// row, or the one given (PNG_FILTER_...).
Bytes Write(const TestPNG::Picture& picture, int filters);

// The payloads of a file's image data chunks, joined.
Bytes ImageDataOf(const Bytes& file);

// Each decodes a file to samples of 8 bits in memory of its own, palettes to colours, and throws
// what isn't decoded.
void DecodeWithLibpng(const Bytes& file);
void DecodeWithSpng(const Bytes& file);
void DecodeWithStb(const Bytes& file);

} // namespace Bench
