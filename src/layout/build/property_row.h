// The keys that a class reads: one row for each, from which the builder reads it, the checker knows
// it and the documentation lists it.
#pragma once

#include "layout/language/vex_text.h"

#include <cstdint>
#include <span>

namespace Kesto {

struct PropertyRow {
    VexName key;
    std::int32_t fallback; // for a number that isn't given; 0 for a text, which is empty then
    const char* purpose;   // for authors, in a few words
};

using PropertyRows = std::span<const PropertyRow>;

} // namespace Kesto
