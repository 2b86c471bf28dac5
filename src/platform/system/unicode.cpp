#include "platform/system/unicode.h"

#include <algorithm>
#include <bit>

namespace Platform {
namespace {

// Encodings of n + 1 bytes reach up to kLimits[n].
constexpr std::array<std::uint32_t, 6> kLimits = {0x7F,     0x7FF,     0xFFFF,
                                                  0x1FFFFF, 0x3FFFFFF, kMaximumCharacter};

constexpr bool IsHighSurrogate(std::uint32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool IsLowSurrogate(std::uint32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

// The length that a lead byte announces; 0 for a byte that leads nothing.
std::size_t AnnouncedLength(unsigned char lead)
{
    const int ones = std::countl_one(lead);
    return ones == 0 ? 1 : ones == 1 || ones > 6 ? 0 : static_cast<std::size_t>(ones);
}

} // namespace

std::size_t EncodedLength(std::uint32_t value)
{
    if (value <= kLimits[0])
        return 1;
    if (value > kMaximumCharacter)
        value = kReplacementCharacter;
    return static_cast<std::size_t>(std::ranges::lower_bound(kLimits, value) - kLimits.begin()) + 1;
}

char* EncodeCharacter(std::uint32_t value, char* out)
{
    if (value > kMaximumCharacter)
        value = kReplacementCharacter;
    const std::size_t length = EncodedLength(value);
    for (std::size_t i = length - 1; i > 0; --i, value >>= 6)
        out[i] = static_cast<char>(0x80 | (value & 0x3F));
    const std::uint32_t mark = length == 1 ? 0 : 0xFF00U >> length;
    out[0] = static_cast<char>((mark & 0xFF) | value);
    return out + length;
}

void AppendCharacter(std::string& text, std::uint32_t value)
{
    std::array<char, 6> bytes;
    text.append(bytes.data(), EncodeCharacter(value, bytes.data()));
}

// A sequence that is cut short or longer than it need be costs one byte: what follows the lead may
// be the beginning of a good character.
std::uint32_t TakeCharacter(std::string_view& utf8)
{
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = AnnouncedLength(lead);
    std::uint32_t value = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    std::size_t taken = 1;
    while (taken < length && taken < utf8.size() && IsContinuation(utf8[taken]))
        value = value << 6 | (static_cast<unsigned char>(utf8[taken++]) & 0x3F);
    if (length == 0 || taken < length || value > kMaximumCharacter ||
        EncodedLength(value) != length) {
        utf8.remove_prefix(1);
        return kReplacementCharacter;
    }
    utf8.remove_prefix(length);
    return value;
}

std::uint32_t TakeCharacter(std::u16string_view& utf16)
{
    const std::uint32_t unit = utf16.front();
    const bool isPair = IsHighSurrogate(unit) && utf16.size() > 1 && IsLowSurrogate(utf16[1]);
    const std::uint32_t value =
        isPair ? 0x10000 + ((unit - 0xD800) << 10) + (utf16[1] - 0xDC00U) : unit;
    utf16.remove_prefix(isPair ? 2 : 1);
    return value;
}

// UTF-8 of up to six bytes holds values that surrogate pairs can't.
std::u16string ToUtf16(std::string_view utf8)
{
    std::u16string units;
    units.reserve(utf8.size());
    while (!utf8.empty()) {
        std::uint32_t value = TakeCharacter(utf8);
        if (value > 0x10FFFF)
            value = kReplacementCharacter;
        if (value >= 0x10000) {
            units += static_cast<char16_t>(0xD800 + ((value - 0x10000) >> 10));
            value = 0xDC00 + (value & 0x3FF);
        }
        units += static_cast<char16_t>(value);
    }
    return units;
}

std::size_t CountCharacters(std::string_view utf8)
{
    return utf8.size() - static_cast<std::size_t>(std::ranges::count_if(utf8, IsContinuation));
}

} // namespace Platform
