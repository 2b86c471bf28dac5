// What result codes mean, in words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Host {

struct ResultText {
    int16_t code;
    std::string_view text;   // what the code says
    std::string_view advice; // what the user can do next
};

// The texts of a code; those of an unknown error for a code that has none of its own.
const ResultText& DescribeResult(int16_t code);

// "There is not enough memory. (-108)"
std::string ResultLine(int16_t code);

} // namespace Host
