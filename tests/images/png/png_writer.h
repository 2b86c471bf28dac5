// Writes PNG files for tests, benchmarks and seeds: sound ones of every kind, and chunks of which
// to make bad ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace TestPNG {

using Bytes = std::vector<std::uint8_t>;

// One image. Samples follow each other pixel by pixel, row by row, 8 bits each.
struct Picture {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint8_t colorType = 0;
    bool interlaced = false;
    Bytes samples;
    Bytes palette;      // red, green, blue of each entry; the chunk is left out when this is empty
    Bytes transparency; // the chunk's payload, likewise

    std::size_t Channels() const;
};

// Random pictures, one of each colour type, plain and interlaced, without and with transparency
// (but no interlaced RGBA). A sample is as likely to repeat the one before it as not; palettes have
// 256 colours, the first 100 of them transparent by degrees; the other transparent pictures have
// the first pixel's colour for a key.
std::vector<Picture> EveryKind(std::int32_t width, std::int32_t height, std::uint32_t seed);

// The rows as they are compressed, row i after the filter byte filters[i % size], and filtered by
// it; 5 and up filter nothing.
Bytes FilteredRows(const Picture& picture, const Bytes& filters);

Bytes Signature();
Bytes Header(std::uint32_t width, std::uint32_t height, std::uint8_t depth, std::uint8_t colorType,
             std::uint8_t filterMethod = 0,
             std::uint8_t interlaceMethod = 0); // the payload of the header chunk
Bytes Chunk(std::string_view type, const Bytes& payload);
Bytes Deflated(const Bytes& data, int level = 6);
Bytes Joined(const std::vector<Bytes>& parts);

// A file of a header's payload, the chunks after it and the end chunk.
Bytes FileOf(const Bytes& header, const std::vector<Bytes>& chunks);

// A whole file, its image data in chunks of `pieceBytes`.
Bytes Encoded(const Picture& picture, const Bytes& filters, std::size_t pieceBytes = 8192,
              int level = 6);

} // namespace TestPNG
