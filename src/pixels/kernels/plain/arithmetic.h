// The plain loops of the kernels that look at one pixel at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Kesto::Kernels::Plain {

inline std::uint8_t Clamped(std::int64_t value)
{
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, 255));
}

struct AddWrapping {
    std::uint8_t operator()(std::uint8_t a, std::uint8_t b) const
    {
        return static_cast<std::uint8_t>(a + b);
    }
};
struct AddCapped {
    std::uint8_t operator()(std::uint8_t a, std::uint8_t b) const { return Clamped(a + b); }
};
struct SubtractWrapping {
    std::uint8_t operator()(std::uint8_t a, std::uint8_t b) const
    {
        return static_cast<std::uint8_t>(a - b);
    }
};
struct SubtractFloored {
    std::uint8_t operator()(std::uint8_t a, std::uint8_t b) const { return Clamped(a - b); }
};
struct Complement {
    std::uint8_t operator()(std::uint8_t a) const { return static_cast<std::uint8_t>(~a); }
};
struct SwappedBytes {
    std::uint32_t operator()(std::uint32_t a) const
    {
        return a << 24 | (a << 8 & 0x00FF0000) | (a >> 8 & 0x0000FF00) | a >> 24;
    }
};

template <class Operation, class T>
void MapRow(const T* a, T* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = Operation()(a[i]);
}

template <class Operation>
void MapRows(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = Operation()(a[i], b[i]);
}

inline void Copy(const std::uint8_t* source, std::uint8_t* out, std::size_t n)
{
    std::copy_n(source, n, out);
}

inline void Fill(std::uint32_t pattern, std::uint8_t* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = static_cast<std::uint8_t>(pattern >> 8 * (i & 3));
}

inline void Exchange(std::uint8_t* a, std::uint8_t* b, std::size_t n)
{
    std::swap_ranges(a, a + n, b);
}

inline void MapTable(const std::uint8_t* source, const std::uint8_t* table, std::uint8_t* out,
                     std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = table[source[i]];
}

} // namespace Kesto::Kernels::Plain
