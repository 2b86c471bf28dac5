// Weights of enlarging as whole numbers, for the sources of the fast twins. Internal linkage
// throughout; see vectors.h.
#pragma once

#include <cstdint>

namespace Kesto::Kernels::Avx2 {
namespace {

// True for weights that are what rounding made of w and 1 - w.
inline bool AreShares(float weightA, float weightB)
{
    const double excess = double{weightA} + double{weightB} - 1;
    return weightB >= 0 && weightB < 1 && excess <= 0x1p-24 && excess >= -0x1p-24;
}

// True for weights that nothing was rounded of and of at most 2^-bits, so that no sum comes near to
// an edge unless it lies on it.
inline bool AreCoarse(float weightA, float weightB, int bits)
{
    const float steps = weightB * static_cast<float>(1 << bits);
    return steps == static_cast<float>(static_cast<std::int32_t>(steps)) && weightA == 1 - weightB;
}

// A pixel is the nearer of the two and a part of the difference to the other. The part is at most a
// half, in units of 2^-16: a whole factor, and what is left of it in 256ths. A product is wrong by
// at most a unit, and by another one since the sum of the weights may not quite be 1.
struct Factor {
    Factor(float weightA, float weightB)
    {
        const float near = weightA < weightB ? weightB : weightA;
        const float far = weightA < weightB ? weightA : weightB;
        const std::int32_t units = static_cast<std::int32_t>(far * 0x1p24f + 0.5f);
        const std::int32_t nearest = (units + 128) >> 8;
        const std::int32_t whole = nearest < 32767 ? nearest : 32767;
        fWhole = static_cast<std::int16_t>(whole);
        const std::int32_t rest =
            units - 256 * whole; // a unit more than 255 where the part is a half
        fRest = static_cast<std::int16_t>(
            128 * (rest < 255 ? rest : 255)); // for products that are divided by 2^15
        fLift = AreCoarse(near, far, 12) ? kLift : 0;
    }

    // Results closer to an edge than this are doubtful; those that are right even on it are lifted
    // beyond.
    static constexpr std::int8_t kDoubt = 4;
    static constexpr std::int8_t kLift = 2 * kDoubt;

    std::int16_t fWhole, fRest;
    std::int8_t fLift;
};

} // namespace
} // namespace Kesto::Kernels::Avx2
