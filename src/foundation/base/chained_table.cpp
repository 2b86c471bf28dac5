#include "foundation/base/chained_table.h"

#include <bit>
#include <cstring>

namespace Kesto {
namespace {

// Eight bytes as a number, the first one most significant.
std::uint64_t EightBytes(const char* bytes)
{
    std::uint64_t number;
    std::memcpy(&number, bytes, sizeof number);
    return std::endian::native == std::endian::little ? __builtin_bswap64(number) : number;
}

// All of less than eight bytes in the same way.
std::uint64_t FewBytes(std::string_view bytes)
{
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

// Less than 2^42, and the same as `number` modulo 1021: 2^10 is 3 there, so 2^40 is 81.
std::uint64_t Fold(std::uint64_t number)
{
    return (number & 0xFFFFFFFFFF) + 81 * (number >> 40);
}

} // namespace

KeyPlace PlaceOf(std::string_view key)
{
    constexpr std::uint64_t kShiftByEight = 433; // 2^64 modulo 1021
    constexpr std::uint64_t kScatter = 0x9E3779B97F4A7C15;
    std::size_t done = key.size() % 8;
    std::uint64_t hash =
        key.size() < 8 ? FewBytes(key) : EightBytes(key.data()) >> 8 >> (7 - done) * 8;
    std::uint64_t digest = (hash + key.size()) * kScatter;
    for (; done < key.size() && key.size() >= 8; done += 8) {
        const std::uint64_t eight = EightBytes(key.data() + done);
        hash = Fold(hash) * kShiftByEight + Fold(eight);
        digest = (digest ^ eight) * kScatter;
    }
    return {static_cast<std::uint32_t>(hash % kTableBuckets),
            static_cast<std::uint32_t>(digest >> 32)};
}

std::uint32_t CPieceArena::Allocate(std::size_t size)
{
    constexpr std::size_t kBlockSize = std::size_t{8}
                                       << 16; // what the low half of a piece's number reaches
    constexpr std::size_t kMaximumBlocks = std::size_t{1} << 16;
    const std::size_t rounded = (size + 7) / 8 * 8;
    if (fRoom - fUsed < rounded) {
        if (fBlocks.size() == kMaximumBlocks)
            throw std::bad_alloc();
        const std::size_t room = std::max(kBlockSize, rounded);
        fBlocks.push_back(std::make_unique_for_overwrite<std::byte[]>(room));
        fRoom = room;
        fUsed = 0;
    }
    const std::size_t place = std::exchange(fUsed, fUsed + rounded);
    return static_cast<std::uint32_t>((fBlocks.size() - 1) << 16 | place / 8);
}

} // namespace Kesto
