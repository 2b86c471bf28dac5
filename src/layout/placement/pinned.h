// The one rule of the solver for numbers that leave 32 bits.
//
// Sums are formed in 64 bits, where no text is long enough to overflow them. What is stored in a
// proxy is pinned to the nearest of +-(2^31 - 1), so that it never meets VexUndefined, which means
// "not given" in the layout scope that it is written to. A double is rounded by RoundHalfAway
// before it is pinned; one that is not a number becomes 0.
#pragma once

#include "foundation/base/geometry.h"

#include <algorithm>
#include <cstdint>

namespace Kesto {

constexpr std::int32_t Pinned(std::int64_t sum)
{
    return static_cast<std::int32_t>(
        std::clamp(sum, std::int64_t{-INT32_MAX}, std::int64_t{INT32_MAX}));
}

inline std::int32_t PinnedRound(double value)
{
    return Pinned(RoundHalfAway(value));
}

} // namespace Kesto
