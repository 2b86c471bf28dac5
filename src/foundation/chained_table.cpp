#include "foundation/chained_table.h"

namespace Kesto {

std::uint32_t TableHash(std::string_view key)
{
    // Six bytes at a time: with a remainder of less than 2^10 they still fit 64 bits.
    std::uint64_t hash = 0;
    std::size_t i = 0;
    for (; i + 6 <= key.size(); i += 6) {
        std::uint64_t six = 0;
        for (std::size_t j = i; j < i + 6; ++j)
            six = six << 8 | static_cast<unsigned char>(key[j]);
        hash = (hash << 48 | six) % kTableBuckets;
    }
    for (; i < key.size(); ++i)
        hash = (hash << 8 | static_cast<unsigned char>(key[i])) % kTableBuckets;
    return static_cast<std::uint32_t>(hash);
}

std::uint64_t TableTag(std::string_view key)
{
    std::array<char, 8> tag{};
    const std::string_view last = key.substr(key.size() - std::min<std::size_t>(key.size(), 7));
    std::ranges::copy(last, tag.begin() + 1);
    tag[0] = static_cast<char>(key.size());
    std::uint64_t number;
    std::memcpy(&number, tag.data(), sizeof number);
    return number;
}

} // namespace Kesto
