// The vocabulary of the layout language: named constants and property keys. The generator defines
// the constants, tools check texts against both; a word is added by one row here and nowhere else.
// The classes are in controls/registered_classes.cpp.
#pragma once

#include "layout/language/vex_text.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace Kesto {

struct VexConstant {
    std::string_view family; // the prefix that its kind of constants has
    VexName name;            // with a zero byte after it
    std::int32_t value;
};

// true, false, alignment, frames and placement: what a root scope defines by itself, in that order.
std::span<const VexConstant> StandardConstants();

// All others, in the order in which a generator defines them.
std::span<const VexConstant> ClassConstants();

// What a key can take.
enum class VexKeyKind : std::uint8_t {
    kNumber,  // a number or a flag; a text of four bytes is a number as well
    kDecimal, // a number, or a text that reads as one, since the language has no fractions
    kText,
    kEither, // an identifier as a text or as a number
};

struct VexPropertyKey {
    std::string_view name;
    VexKeyKind kind;
    std::array<std::string_view, 2> families{}; // of the constants that it takes, if of any
};
std::span<const VexPropertyKey> PropertyKeys();

enum class VexClassKind : std::uint8_t { kWindow, kPane };

} // namespace Kesto
