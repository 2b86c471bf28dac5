// The characters and names of a layout text.
//
// Bytes are classed by tables of their own, not by the C library: its answer depends on the locale
// and has none for a negative char. Bytes above 127 are neither white space nor part of a name.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Kesto {

// Values below kCharOther are the digits of the base-63 number that the hash of a name is.
inline constexpr std::uint8_t kCharOther = 64;
inline constexpr std::uint8_t kCharSpace = 65;

inline constexpr std::array<std::uint8_t, 256> kCharClass = [] {
    std::array<std::uint8_t, 256> classes{};
    for (int c = 0; c < 256; ++c) {
        std::uint8_t value = kCharOther;
        if (c >= '0' && c <= '9')
            value = static_cast<std::uint8_t>(c - 48);
        else if (c >= 'A' && c <= 'Z')
            value = static_cast<std::uint8_t>(c - 55);
        else if (c >= 'a' && c <= 'z')
            value = static_cast<std::uint8_t>(c - 61);
        else if (c == '_')
            value = 62;
        else if (c == ' ' || (c >= '\t' && c <= '\r'))
            value = kCharSpace;
        classes[static_cast<std::size_t>(c)] = value;
    }
    return classes;
}();

constexpr std::uint8_t CharClass(char c)
{
    return kCharClass[static_cast<unsigned char>(c)];
}
constexpr bool IsVexSpace(char c)
{
    return CharClass(c) == kCharSpace;
}
constexpr bool IsVexDigit(char c)
{
    return CharClass(c) < 10;
}
constexpr bool IsVexNameStart(char c)
{
    return CharClass(c) >= 10 && CharClass(c) < kCharOther;
}

// The hash of a name: a number of base 63, modulo 2^32. A byte that no name can hold counts as 0.
constexpr std::uint32_t HashName(std::string_view name)
{
    std::uint32_t hash = 0;
    for (char c : name)
        hash = hash * 63 + (CharClass(c) < kCharOther ? CharClass(c) : 0U);
    return hash;
}

// A name with its hash, so that a chain of scopes is searched with one computation of it.
struct VexName {
    constexpr VexName() = default;
    constexpr explicit VexName(std::string_view name) : text(name), hash(HashName(name)) {}
    constexpr VexName(std::string_view name, std::uint32_t nameHash) : text(name), hash(nameHash) {}

    std::string_view text;
    std::uint32_t hash = 0;
};

inline const char* SkipVexSpace(const char* cursor)
{
    while (IsVexSpace(*cursor))
        ++cursor;
    return cursor;
}

// The name that begins at `cursor`, which must be at a character that can begin one.
inline VexName ScanVexName(const char* cursor)
{
    const char* end = cursor;
    std::uint32_t hash = 0;
    for (std::uint8_t value = CharClass(*end); value < kCharOther; value = CharClass(*++end))
        hash = hash * 63 + value;
    return {std::string_view(cursor, static_cast<std::size_t>(end - cursor)), hash};
}

} // namespace Kesto
