// Arithmetic of sizes and places that must fit in 32 bits.
#pragma once

#include <cstdint>

namespace Kesto {

// The value as 32 bits. Throws std::length_error when it does not fit.
std::int32_t ToInt32(std::int64_t value);

// The product as 32 bits; the factors are below 2^31 in magnitude. Throws std::length_error when it
// does not fit.
inline std::int32_t Multiply32(std::int64_t a, std::int64_t b)
{
    return ToInt32(a * b);
}

} // namespace Kesto
