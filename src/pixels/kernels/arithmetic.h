// Kernels that add, subtract or look up, pixel by pixel, on 8-bit views. An output may be one of
// the inputs.
#pragma once

#include "pixels/pixmaps/pixview.h"

#include <span>

namespace Kesto::Kernels {

// out = a + b: modulo 256, or capped at 255.
void AddWrapping(const CPixView& out, const CPixView& a, const CPixView& b);
void AddCapped(const CPixView& out, const CPixView& a, const CPixView& b);

// out = a - b: modulo 256, or floored at 0.
void SubtractWrapping(const CPixView& out, const CPixView& a, const CPixView& b);
void SubtractFloored(const CPixView& out, const CPixView& a, const CPixView& b);

// out = source + table[other], held to 0 to 255.
void AddLookup(const CPixView& out, const CPixView& source, const CPixView& other,
               std::span<const std::int32_t, 256> table);

// out = table[source].
void MapTable(const CPixView& out, const CPixView& source,
              std::span<const std::uint8_t, 256> table);

// out = table[level << 8 | source], for a table of one row of 256 values for each level.
void MapTable(const CPixView& out, const CPixView& source,
              std::span<const std::uint8_t, 65536> table, std::uint8_t level);

} // namespace Kesto::Kernels
