// The plain loops of blending: one template; an operand is a row of pixels or one value for all.
#pragma once

#include "pixels/kernels/blend_table.h"

#include <cstddef>
#include <cstdint>

namespace Kesto::Kernels::Plain {

struct Constant {
    std::uint8_t fValue;
    std::uint8_t operator[](std::size_t) const { return fValue; }
};

template <class Source, class Below, class Alpha>
void BlendRow(Source source, Below below, Alpha alpha, std::uint8_t* out, std::size_t n)
{
    const CBlendTable& table = *CBlendTable::Get();
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t a = alpha[i];
        if (a == 255)
            out[i] = source[i];
        else if (a == 0)
            out[i] = below[i];
        else
            out[i] = static_cast<std::uint8_t>(table(a, source[i]) + table(a ^ 255, below[i]));
    }
}

inline void Blend(const std::uint8_t* source, const std::uint8_t* below, const std::uint8_t* mask,
                  std::uint8_t* out, std::size_t n)
{
    BlendRow(source, below, mask, out, n);
}

inline void BlendConstant(const std::uint8_t* source, const std::uint8_t* below, std::uint8_t alpha,
                          std::uint8_t* out, std::size_t n)
{
    BlendRow(source, below, Constant{alpha}, out, n);
}

inline void BlendColour(std::uint8_t colour, const std::uint8_t* below, const std::uint8_t* mask,
                        std::uint8_t* out, std::size_t n)
{
    BlendRow(Constant{colour}, below, mask, out, n);
}

inline void BlendColourConstant(std::uint8_t colour, const std::uint8_t* below, std::uint8_t alpha,
                                std::uint8_t* out, std::size_t n)
{
    BlendRow(Constant{colour}, below, Constant{alpha}, out, n);
}

inline void BlendColours(std::uint8_t colour, std::uint8_t below, const std::uint8_t* mask,
                         std::uint8_t* out, std::size_t n)
{
    BlendRow(Constant{colour}, Constant{below}, mask, out, n);
}

// kFlip is 255 for an inverted mask, else 0.
template <std::uint32_t kFlip>
void ApplyMask(const std::uint8_t* source, const std::uint8_t* mask, std::uint8_t* out,
               std::size_t n)
{
    const CBlendTable& table = *CBlendTable::Get();
    for (std::size_t i = 0; i < n; ++i)
        out[i] = table(mask[i] ^ kFlip, source[i]);
}

} // namespace Kesto::Kernels::Plain
