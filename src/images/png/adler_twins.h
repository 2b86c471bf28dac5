// The fast ways of an AdlerSum to add up many bytes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Kesto {

// So many bytes at once that no lane of the sums passes 32 bits, and those that a step takes.
constexpr std::size_t kMostAdlerBytes = 4096;
constexpr std::size_t kAdlerStep = 32;

struct AdlerSums {
    std::uint64_t plain = 0;    // of the bytes
    std::uint64_t weighted = 0; // of each byte times how many bytes there are from it to the end
};

// Sums of `count` bytes, a whole number of steps, kMostAdlerBytes at most. What the weights of a
// step lack is its size for each step after it: the bytes before each step, summed over the steps,
// times that.
AdlerSums AdlerSumsWithSse2(const std::uint8_t* bytes, std::size_t count);

// The same; may only be entered where the processor has AVX2.
AdlerSums AdlerSumsWithAvx2(const std::uint8_t* bytes, std::size_t count);

} // namespace Kesto
