// The checksum at the end of zlib's streams: two sums modulo 65521, of the bytes and of the first
// sum after each of them.
#pragma once

#include <cstdint>
#include <span>

namespace Kesto {

class AdlerSum {
public:
    void Add(std::span<const std::uint8_t> bytes);

    std::uint32_t Value() const { return fSecond << 16 | fFirst; }

private:
    std::uint32_t fFirst = 1; // both below the modulus
    std::uint32_t fSecond = 0;
};

} // namespace Kesto
