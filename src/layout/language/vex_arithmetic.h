// The arithmetic of the layout language: 32 bits, wrapping around, undefined when an operand is.
#pragma once

#include "layout/language/vex_value.h"

#include <cstdint>
#include <stdexcept>

namespace Kesto::Vex {

inline std::int32_t Wrap(std::uint32_t bits)
{
    return static_cast<std::int32_t>(bits);
}
inline std::uint32_t Bits(std::int32_t integer)
{
    return static_cast<std::uint32_t>(integer);
}
inline bool AreDefined(std::int32_t a, std::int32_t b)
{
    return a != VexUndefined && b != VexUndefined;
}

inline std::int32_t WrappingAdd(std::int32_t a, std::int32_t b)
{
    return Wrap(Bits(a) + Bits(b));
}
inline std::int32_t WrappingSubtract(std::int32_t a, std::int32_t b)
{
    return Wrap(Bits(a) - Bits(b));
}

inline std::int32_t Add(std::int32_t a, std::int32_t b)
{
    return AreDefined(a, b) ? WrappingAdd(a, b) : VexUndefined;
}

inline std::int32_t Subtract(std::int32_t a, std::int32_t b)
{
    return AreDefined(a, b) ? WrappingSubtract(a, b) : VexUndefined;
}

inline std::int32_t Multiply(std::int32_t a, std::int32_t b)
{
    return AreDefined(a, b) ? Wrap(Bits(a) * Bits(b)) : VexUndefined;
}

// The quotient toward zero. The lowest integer is the undefined one, so no quotient of defined
// operands overflows.
inline std::int32_t Divide(std::int32_t a, std::int32_t b)
{
    if (!AreDefined(a, b))
        return VexUndefined;
    if (b == 0)
        throw std::logic_error("Warning! (divisor != 0)");
    return a / b;
}

inline std::int32_t Negate(std::int32_t a)
{
    return Wrap(0 - Bits(a));
}

} // namespace Kesto::Vex
