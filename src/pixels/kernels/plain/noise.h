// The plain loops of the random kernels.
#pragma once

#include "pixels/kernels/plain/arithmetic.h"

namespace Kesto::Kernels::Plain {

inline constexpr std::int32_t kNoiseSamples = 12;
inline constexpr std::int32_t kNoiseMean = 0x2FFFA; // of the sum of the samples
inline constexpr std::int32_t kSampleRange = 32767;

// The next of the evenly spread samples 0 to 32767.
inline std::int32_t NextSample(std::uint32_t& seed)
{
    seed = seed * 1103515245u + 12345u;
    return static_cast<std::int32_t>(seed >> 16 & 0x7FFF);
}

// The sum of twelve even samples is close to a bell curve.
inline void Noise(const std::uint8_t* source, std::uint8_t* out, std::size_t n, std::int32_t amount,
                  std::uint32_t& seed)
{
    std::uint32_t state = seed;
    for (std::size_t i = 0; i < n; ++i) {
        std::int32_t sum = 0;
        for (std::int32_t k = 0; k < kNoiseSamples; ++k)
            sum += NextSample(state);
        const std::int64_t noise = std::int64_t{sum - kNoiseMean} * amount / kSampleRange;
        out[i] = Clamped(source[i] + noise);
    }
    seed = state;
}

} // namespace Kesto::Kernels::Plain
