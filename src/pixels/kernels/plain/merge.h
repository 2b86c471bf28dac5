// The plain loops between planes and 32-bit pixels, and of premultiplied pixels.
#pragma once

#include "pixels/kernels/blend_table.h"
#include "pixels/kernels/kernel_table.h"

#include <algorithm>

namespace Kesto::Kernels::Plain {

// The bytes of pixel i, lowest first. A constant byte is a row that does not move on.
class MergedPixels {
public:
    explicit MergedPixels(const MergedRows& rows)
    {
        for (std::size_t i = 0; i < 4; ++i) {
            fBytes[i] = rows.fBytes[i] != nullptr ? rows.fBytes[i] : &rows.fConstant;
            fSteps[i] = rows.fBytes[i] != nullptr ? 1 : 0;
        }
    }

    std::uint32_t operator()(std::size_t byte, std::size_t i) const
    {
        return fBytes[byte][i * fSteps[byte]];
    }

private:
    std::array<const std::uint8_t*, 4> fBytes;
    std::array<std::size_t, 4> fSteps;
};

inline void Merge(const MergedRows& source, std::uint32_t* out, std::size_t n)
{
    const MergedPixels pixel(source);
    for (std::size_t i = 0; i < n; ++i)
        out[i] = pixel(0, i) | pixel(1, i) << 8 | pixel(2, i) << 16 | pixel(3, i) << 24;
}

inline void MergePremultiplied(const MergedRows& source, std::uint32_t* out, std::size_t n)
{
    const MergedPixels pixel(source);
    const CBlendTable& table = *CBlendTable::Get();
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t alpha = pixel(3, i);
        const std::uint8_t* const weighted = table.Row(alpha);
        out[i] = std::uint32_t{weighted[pixel(0, i)]} | std::uint32_t{weighted[pixel(1, i)]} << 8 |
                 std::uint32_t{weighted[pixel(2, i)]} << 16 | alpha << 24;
    }
}

inline void Split(const std::uint32_t* source, const SplitRows& out, std::size_t n)
{
    for (std::size_t byte = 0; byte < out.size(); ++byte)
        if (std::uint8_t* const row = out[byte])
            for (std::size_t i = 0; i < n; ++i)
                row[i] = static_cast<std::uint8_t>(source[i] >> 8 * byte);
}

inline void WidenRGB(const std::uint8_t* source, std::uint32_t* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i, source += 3)
        out[i] =
            0xFF000000 | std::uint32_t{source[0]} << 16 | std::uint32_t{source[1]} << 8 | source[2];
}

inline void LayOver(const std::uint32_t* source, std::uint32_t* out, std::size_t n)
{
    const CBlendTable& table = *CBlendTable::Get();
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint8_t* const weighted = table.Row(255 - (source[i] >> 24));
        std::uint32_t pixel = 0;
        for (const std::uint32_t shift : {0u, 8u, 16u, 24u}) {
            const std::uint32_t below = weighted[out[i] >> shift & 255];
            pixel |= std::min((source[i] >> shift & 255) + below, 255u) << shift;
        }
        out[i] = pixel;
    }
}

} // namespace Kesto::Kernels::Plain
