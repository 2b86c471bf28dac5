// The plain loops of the kernels that look at a pixel's neighbours.
#pragma once

#include "pixels/kernels/plain/arithmetic.h"
#include "pixels/kernels/plane.h"

namespace Kesto::Kernels::Plain {

template <class Value>
void EmbossRow(const Value* const near[3], const Value* const far[3], const std::uint8_t* base,
               std::int32_t constant, std::uint8_t* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        const std::int64_t light = std::int64_t{near[0][i]} + near[1][i] + near[2][i];
        const std::int64_t shade = std::int64_t{far[0][i]} + far[1][i] + far[2][i];
        out[i] = Clamped((base != nullptr ? base[i] : constant) + light - shade);
    }
}

inline void SharpenRow(const std::uint8_t* const rows[3], const std::int32_t* table,
                       std::uint8_t* out, std::size_t n)
{
    const std::uint8_t* const centre = rows[1];
    const std::uint8_t* const left = centre - 1;
    for (std::size_t i = 0; i < n; ++i) {
        const std::int32_t edge = centre[i] * 4 - left[i] - centre[i + 1] - rows[0][i] - rows[2][i];
        out[i] = Clamped(std::int64_t{centre[i]} + table[edge]);
    }
}

inline void Sharpen(Plane<const std::uint8_t> source, Plane<std::uint8_t> out,
                    const std::int32_t* table)
{
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        const std::uint8_t* const rows[3] = {source.Row(y) + 1, source.Row(y + 1) + 1,
                                             source.Row(y + 2) + 1};
        SharpenRow(rows, table, out.Row(y), static_cast<std::size_t>(out.fWidth));
    }
}

inline void NeighbourMeanRow(const std::uint8_t* const rows[3], std::int32_t weight,
                             std::uint8_t* out, std::size_t n)
{
    const std::uint8_t* const centre = rows[1];
    const std::uint8_t* const left = centre - 1;
    for (std::size_t i = 0; i < n; ++i) {
        const std::int64_t sum =
            std::int64_t{weight} * centre[i] + left[i] + centre[i + 1] + rows[0][i] + rows[2][i];
        out[i] = Clamped(sum / (std::int64_t{weight} + 4));
    }
}

} // namespace Kesto::Kernels::Plain
