// The values of the layout language.
#pragma once

#include <cstdint>
#include <string_view>

namespace Kesto {

// The integer of a variable that has no number, and the result of an expression on unknown names.
inline constexpr std::int32_t VexUndefined = INT32_MIN;

// The text of every value that is a number. Compared by content, never by address.
inline constexpr const char* kVexNoText = "";

// What an expression, a string or a variable yields: a number, a text, or (a text of four bytes)
// both.
struct VexContent {
    std::int32_t integer = VexUndefined;
    const char* text = kVexNoText;
};

// One variable of a scope. It lies in the scope's string pool. Its text may lie in the pool of an
// enclosing scope, and ends with a zero.
struct VexValue {
    VexValue* next; // in the bucket
    std::int32_t integer;
    std::uint32_t nameHash;
    const char* text;

    // Valid as long as the scope.
    std::string_view Name() const { return {fName, fNameLength}; }

private:
    friend class CExpressionScope;

    // In the pool, or in the text that is being read: so no zero need follow.
    const char* fName;
    std::uint32_t fNameLength;
    std::uint32_t fBucket;
};

} // namespace Kesto
