// The noise kernels' generator, moved on by many steps at once: what a lane of a vector starts
// from.
#pragma once

#include <cstdint>

namespace Kesto::Kernels {
namespace {

constexpr std::uint32_t kNoiseSamples = 12; // for each pixel
constexpr std::uint32_t kNoiseMean = 0x2FFFA;

// Beyond this amount products leave 32 bits.
constexpr std::int32_t kMostNoise = 10922;

// The generator, moved on by `steps`: seed * fFactor + fTerm.
struct Jump {
    static constexpr Jump By(std::uint32_t steps)
    {
        Jump jump{1, 0};
        for (std::uint32_t i = 0; i < steps; ++i)
            jump = {jump.fFactor * 1103515245u, jump.fTerm * 1103515245u + 12345u};
        return jump;
    }
    std::uint32_t operator()(std::uint32_t seed) const { return seed * fFactor + fTerm; }

    std::uint32_t fFactor;
    std::uint32_t fTerm;
};

// To each sample of a pixel.
struct SampleJumps {
    Jump fTo[kNoiseSamples];
};
constexpr SampleJumps kSampleJumps = [] {
    SampleJumps jumps{};
    for (std::uint32_t i = 0; i < kNoiseSamples; ++i)
        jumps.fTo[i] = Jump::By(i + 1);
    return jumps;
}();

} // namespace
} // namespace Kesto::Kernels
