// The loops that have a fast twin, as one table of function pointers for each level of the
// processor.
//
// Rows: `n` counts pixels; an output row may be an input row, and the twins see to rows that
// overlap otherwise by taking the plain loop. Planes: outputs do not overlap inputs. Every entry
// gives the same bytes at every level.
#pragma once

#include "pixels/kernels/box_shape.h"
#include "pixels/kernels/plane.h"
#include "pixels/kernels/scale_tables.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace Kesto::Kernels {

// Six of these, and a pixel, add up in 16 bits.
inline constexpr std::int32_t kEmbossLimit = 4096;

// The rows that become the bytes of 32-bit pixels, lowest byte first. A null row is the constant
// throughout.
struct MergedRows {
    std::array<const std::uint8_t*, 4> fBytes;
    std::uint8_t fConstant;
};

// The rows that take the bytes of 32-bit pixels, lowest byte first, or null for a byte that nobody
// wants.
using SplitRows = std::array<std::uint8_t*, 4>;

struct KernelTable {
    using Unary8 = void (*)(const std::uint8_t* source, std::uint8_t* out, std::size_t n);
    using Binary8 = void (*)(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* out,
                             std::size_t n);

    Binary8 addWrapping, addCapped, subtractWrapping, subtractFloored;
    Unary8 invert; // n counts bytes
    Unary8 copy;   // n bytes; rows that do not overlap
    void (*fill)(std::uint32_t pattern, std::uint8_t* out,
                 std::size_t n); // n bytes, the pattern's bytes repeated
    void (*exchange)(std::uint8_t* a, std::uint8_t* b, std::size_t n); // n bytes
    void (*swapBytes)(const std::uint32_t* source, std::uint32_t* out, std::size_t n);

    void (*blend)(const std::uint8_t* source, const std::uint8_t* below, const std::uint8_t* mask,
                  std::uint8_t* out, std::size_t n);
    void (*blendConstant)(const std::uint8_t* source, const std::uint8_t* below, std::uint8_t alpha,
                          std::uint8_t* out, std::size_t n);
    void (*blendColour)(std::uint8_t colour, const std::uint8_t* below, const std::uint8_t* mask,
                        std::uint8_t* out, std::size_t n);
    void (*blendColourConstant)(std::uint8_t colour, const std::uint8_t* below, std::uint8_t alpha,
                                std::uint8_t* out, std::size_t n);
    void (*blendColours)(std::uint8_t colour, std::uint8_t below, const std::uint8_t* mask,
                         std::uint8_t* out, std::size_t n);
    Binary8 applyMask, applyInvertedMask; // a: pixels, b: mask
    void (*mapTable)(const std::uint8_t* source, const std::uint8_t* table, std::uint8_t* out,
                     std::size_t n);

    void (*noise)(const std::uint8_t* source, std::uint8_t* out, std::size_t n, std::int32_t amount,
                  std::uint32_t& seed);
    void (*hueToRGB)(const std::uint8_t* const hsv[3], std::uint8_t* const rgb[3], std::size_t n);

    // Between planes and 32-bit pixels; outputs do not overlap inputs.
    void (*mergePlanes)(const MergedRows& source, std::uint32_t* out, std::size_t n);
    void (*mergePremultiplied)(const MergedRows& source, std::uint32_t* out, std::size_t n);
    void (*splitPlanes)(const std::uint32_t* source, const SplitRows& out, std::size_t n);

    // Pixels of a red, a green and a blue byte each to opaque 32-bit pixels, blue lowest.
    void (*widenRGB)(const std::uint8_t* source, std::uint32_t* out, std::size_t n);

    // Premultiplied pixels over those in `out`, which they do not overlap: with the blend table's T
    // each byte becomes s + T[255 - alpha][out], capped at 255.
    void (*layOver)(const std::uint32_t* source, std::uint32_t* out, std::size_t n);

    // The sums of three neighbours on either side; rows hold table values and reach one entry
    // beyond both ends. With values and a constant within kEmbossLimit of 0.
    void (*embossRow)(const std::int16_t* const near[3], const std::int16_t* const far[3],
                      const std::uint8_t* base, std::int32_t constant, std::uint8_t* out,
                      std::size_t n);
    // rows[1] is the centre row; all three reach one pixel beyond both ends.
    void (*neighbourMeanRow)(const std::uint8_t* const rows[3], std::int32_t weight,
                             std::uint8_t* out, std::size_t n);

    // Planes. The source is one pixel larger on every side; `table` is the entry of a difference of
    // 0.
    void (*sharpen)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out,
                    const std::int32_t* table);

    // A row of mosaic cells, see plain/mosaic.h. `sums` has room for a number for each column.
    void (*mosaicBand)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out,
                       std::int32_t cellWidth, bool round, std::uint32_t* sums);

    // Boxes. `scratch` has shape.ScratchBytes(columns of the source) bytes. `counts` is the rank's
    // histogram to work in.
    void (*rank)(Plane<const std::uint32_t> source, Plane<std::uint32_t> out, BoxShape shape,
                 std::int32_t rank, std::span<std::int32_t> counts, std::byte* scratch);
    void (*boxMean)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out, BoxShape shape,
                    bool round, std::byte* scratch);
    void (*boxMaximum)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out, BoxShape shape,
                       std::byte* scratch);
    void (*boxMinimum)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out, BoxShape shape,
                       std::byte* scratch);
    void (*boxRange)(Plane<const std::uint8_t> source, Plane<std::uint8_t> out, BoxShape shape,
                     std::byte* scratch);

    // Scaling of rows; see scale_tables.h.
    ScaleRows<std::uint8_t> scale8;
    ScaleRows<std::uint16_t> scale16;
    ScaleRows<std::uint32_t> scale32;
};

// The plain loops, and the fast ones, which may only be entered where the processor allows it. The
// results of streaming tables go past the caches, which pays where they would not fit there anyway.
const KernelTable& PlainKernels();
const KernelTable& Avx2Kernels();
const KernelTable& Avx2StreamingKernels();
const KernelTable& Avx512Kernels();
const KernelTable& Avx512StreamingKernels();

// The table of the active level for an operation that writes so many bytes in all.
const KernelTable& ActiveKernels(std::size_t bytesOut = 0);

} // namespace Kesto::Kernels
